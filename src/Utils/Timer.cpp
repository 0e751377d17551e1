#include "Utils/Timer.h"

#include "Utils/Platform.h"

#include <chrono>
#include <thread>

namespace Utils {

namespace {

constexpr std::int64_t kTicksASecond = 100'000'000;
/// Seconds reported when the counter cannot be read: about one frame of a common display.
constexpr double kSecondsWithoutCounter = 1.0 / 75.0;

/// Counts converted to ticks, rounded down, without overflow even after years.
std::int64_t Ticks(std::int64_t counts, std::int64_t frequency) {
    return counts / frequency * kTicksASecond + counts % frequency * kTicksASecond / frequency;
}

} // namespace

Timer::Timer() {
    Start();
}

void Timer::Start() {
    frequency = Platform::CounterFrequency();
    valid = Platform::ReadCounter(start);
    started = true;
}

double Timer::Elapsed() {
    if (!started || !valid) {
        Start();
        if (!valid) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return kSecondsWithoutCounter;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    std::int64_t now = start;
    Platform::ReadCounter(now);
    return static_cast<double>(Ticks(now - start, frequency)) / static_cast<double>(kTicksASecond);
}

double Timer::ElapsedAndRestart() {
    const double elapsed = Elapsed();
    Start();
    return elapsed;
}

} // namespace Utils
