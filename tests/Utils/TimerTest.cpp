#include "Utils/Timer.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace Utils {
namespace {

TEST(Timer, AgreesWithAnotherClock) {
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::duration span) { return std::chrono::duration<double>(span).count(); };
    const Clock::time_point before = Clock::now();
    Timer timer;
    const Clock::time_point made = Clock::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const Clock::time_point asked = Clock::now();
    const double elapsed = timer.ElapsedAndRestart();
    EXPECT_GE(elapsed, seconds(asked - made) - 1e-6);
    EXPECT_LE(elapsed, seconds(Clock::now() - before) + 1e-6);
    EXPECT_LE(timer.Elapsed(), seconds(Clock::now() - asked) + 1e-6);
}

} // namespace
} // namespace Utils
