#include "Annotator/Window/FramePacer.h"

#include <algorithm>
#include <thread>

namespace Annotator {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kFrame = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / 60.0));
constexpr auto kTolerance = std::chrono::milliseconds(1);
constexpr auto kQuickPresent = std::chrono::milliseconds(4);
constexpr int kQuickPresents = 8;

} // namespace

bool PresentWatch::Waits(Clock::duration present) {
    quickInARow = present <= kQuickPresent ? std::min(quickInARow + 1, kQuickPresents) : 0;
    return quickInARow < kQuickPresents;
}

void FramePacer::Wait() {
    if (next - Clock::now() > kTolerance)
        std::this_thread::sleep_until(next);
    next = Clock::now() + kFrame;
}

} // namespace Annotator
