#include "Utils/Platform.h"

#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <iostream>

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

boost::filesystem::path DataFolder() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome && boost::filesystem::path(dataHome).is_absolute())
        return dataHome;
    const char* home = std::getenv("HOME");
    return home && *home ? boost::filesystem::path(home) / ".local/share" : boost::filesystem::path();
}

boost::filesystem::path ProgramPath() {
    boost::system::error_code error;
    return boost::filesystem::read_symlink("/proc/self/exe", error);
}

void ShowErrorBox(const std::string& caption, const std::string& text) {
    std::cerr << caption << ": " << text << std::endl;
}

} // namespace Utils::Platform
