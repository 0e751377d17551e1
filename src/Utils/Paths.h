#pragma once

#include <boost/filesystem/path.hpp>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace Utils {

/// The path under which a file system that takes no notice of case would find `path`: the path itself when it exists,
/// else the one whose components differ only in the case of ASCII letters, for each component the exact name first and
/// else the first in byte order. Back-slashes count as separators. Empty when there is none.
boost::filesystem::path FindIgnoringCase(const boost::filesystem::path& path);

/// The path with the case of each name as its folder lists it, the exact name first. What is not listed stays as it is.
/// This tells what a file is called where the file system takes no notice of case and so finds it by any spelling.
boost::filesystem::path OnDiskCase(const boost::filesystem::path& path);

/// The user's application data folder: XDG_DATA_HOME, else .local/share of the home; on Windows the roaming folder.
/// Empty when there is no home.
boost::filesystem::path UserDataFolder();

/// A path for the streams of the standard library, which on Windows take any letters only in this form.
std::filesystem::path StreamPath(const boost::filesystem::path& path);

/// The name of the folder that holds a file, up to that name's last dot: "A/Big.Jet 1.2/x.acf" gives "Big.Jet 1".
/// It names an aircraft's annotation and detected-data files.
std::string FolderStem(const std::string& filePath);

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
