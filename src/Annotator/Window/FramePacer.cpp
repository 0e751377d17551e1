#include "Annotator/Window/FramePacer.h"

#include <thread>

namespace Annotator {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kFrame = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / 60.0));
constexpr auto kTolerance = std::chrono::milliseconds(1);

} // namespace

void FramePacer::Wait() {
    if (next - Clock::now() > kTolerance)
        std::this_thread::sleep_until(next);
    next = Clock::now() + kFrame;
}

} // namespace Annotator
