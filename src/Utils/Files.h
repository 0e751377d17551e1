#pragma once

#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

namespace Utils {

/// In bytes, far above the files of real aircraft. A larger file is not read, so that it cannot exhaust memory.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

/// A message that a file above kLargestFile is not read, with both sizes; empty for any other path.
std::string TooLargeText(const boost::filesystem::path& path);
/// True for a regular file of at most kLargestFile bytes; a pipe or a device could block the reader or never end. Logs
/// a file that is too large.
bool IsReadableFile(const boost::filesystem::path& path);
/// A binary stream on a file; not opened unless IsReadableFile.
std::ifstream OpenFile(const boost::filesystem::path& path);
/// The bytes of the whole file; empty if it cannot be read.
std::string ReadFile(const boost::filesystem::path& path);
/// Number of bytes left in a stream; 0 if unknown.
std::size_t SizeLeft(std::istream& stream);
/// The remaining bytes of a stream, up to kLargestFile; empty if it was not opened.
std::string ReadAll(std::istream& stream);

} // namespace Utils
