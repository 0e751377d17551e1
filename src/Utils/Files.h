#pragma once

#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

namespace Utils {

/// No file of an aircraft comes near this size, in bytes; a larger one is not read, so that it cannot fill the memory.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

/// Says of a file above kLargestFile that it is not read, with both sizes; empty for any other path.
std::string TooLargeText(const boost::filesystem::path& path);
/// Whether a path leads to a file of a size that is read, and not to a pipe or a device, which would keep a reader
/// waiting or never end. Logs a file that is too large.
bool IsReadableFile(const boost::filesystem::path& path);
/// A stream on a file's bytes; not opened where IsReadableFile says no.
std::ifstream OpenFile(const boost::filesystem::path& path);
/// The whole file as bytes; empty when it cannot be read.
std::string ReadFile(const boost::filesystem::path& path);
/// How many bytes are left in a stream; 0 where it cannot tell.
std::size_t SizeLeft(std::istream& stream);
/// What is left in a stream, up to kLargestFile; empty when it was not opened.
std::string ReadAll(std::istream& stream);

} // namespace Utils
