#pragma once

#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <string>

/// The operating system services that the foundation needs; each system has its own source file.
namespace Utils::Platform {

/// The system's last error code on this thread.
std::uint32_t LastError();

/// The high-resolution counter; false if it cannot be read.
bool ReadCounter(std::int64_t& count);
/// Counts per second.
std::int64_t CounterFrequency();

/// Folder for the user's application data; empty if the system has none.
boost::filesystem::path DataFolder();

/// Path of the running program with links resolved; empty if unknown.
boost::filesystem::path ProgramPath();

/// Shows a text to the user and blocks until it is dismissed; on a system without message boxes the text goes to
/// standard error.
void ShowErrorBox(const std::string& caption, const std::string& text);

} // namespace Utils::Platform
