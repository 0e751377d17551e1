#pragma once

#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <string>

/// The few services of the operating system that the foundation needs; each system has a source file of its own.
namespace Utils::Platform {

/// The last error code of the system on this thread.
std::uint32_t LastError();

/// The high-resolution counter; false when it cannot be read.
bool ReadCounter(std::int64_t& count);
/// Counts a second.
std::int64_t CounterFrequency();

/// Where programs keep a user's data; empty when the system names no place.
boost::filesystem::path DataFolder();

/// The running program's file, with links followed; empty when the system does not tell.
boost::filesystem::path ProgramPath();

/// Shows a text to the person and blocks until it is dismissed; on a system without a box of its own it goes to the
/// standard error stream.
void ShowErrorBox(const std::string& caption, const std::string& text);

} // namespace Utils::Platform
