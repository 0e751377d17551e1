#ifdef __linux__

#include "Utils/Platform.h"

#include <cerrno>
#include <ctime>

namespace Utils::Platform {

namespace {

constexpr std::int64_t kNanosecondsASecond = 1'000'000'000;

} // namespace

std::uint32_t LastError() {
    return static_cast<std::uint32_t>(errno);
}

bool ReadCounter(std::int64_t& count) {
    timespec now{};
    if (clock_gettime(CLOCK_MONOTONIC, &now) != 0)
        return false;
    count = now.tv_sec * kNanosecondsASecond + now.tv_nsec;
    return true;
}

std::int64_t CounterFrequency() {
    return kNanosecondsASecond;
}

} // namespace Utils::Platform

#endif
