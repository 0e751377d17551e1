#pragma once

#include <boost/filesystem/path.hpp>
#include <filesystem>
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

} // namespace Utils
