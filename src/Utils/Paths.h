#pragma once

#include <boost/filesystem/path.hpp>
#include <filesystem>
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

} // namespace Utils
