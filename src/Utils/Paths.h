#pragma once

#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace Utils {

/// Finds `path` as a case-insensitive file system would: the path itself if it exists, else the one whose components
/// differ only in the case of ASCII letters; for each component the exact name, else the first in byte order.
/// Backslashes count as separators. Empty if there is none.
boost::filesystem::path FindIgnoringCase(const boost::filesystem::path& path);

/// The path with each name in the case that its folder lists, preferring the exact name. Names that are not listed stay
/// unchanged. On a case-insensitive file system this gives a file's real name.
boost::filesystem::path OnDiskCase(const boost::filesystem::path& path);

/// The user's application data folder: XDG_DATA_HOME, else .local/share of the home; on Windows the roaming folder.
/// Empty if there is no home.
boost::filesystem::path UserDataFolder();

/// A path for the standard library's streams, which on Windows accept all characters only in this form.
std::filesystem::path StreamPath(const boost::filesystem::path& path);

/// The name of the folder that holds a file, up to that name's last dot: "A/Big.Jet 1.2/x.acf" gives "Big.Jet 1".
/// It names an aircraft's annotation and detected-data files.
std::string FolderStem(const std::string& filePath);

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
