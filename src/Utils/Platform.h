#pragma once

#include <cstdint>

/// The few services of the operating system that the foundation needs; each system has a source file of its own.
namespace Utils::Platform {

/// The last error code of the system on this thread.
std::uint32_t LastError();

/// The high-resolution counter; false when it cannot be read.
bool ReadCounter(std::int64_t& count);
/// Counts a second.
std::int64_t CounterFrequency();

} // namespace Utils::Platform
