#pragma once

#include <boost/filesystem/path.hpp>
#include <string>

namespace Annotator {

/// The folder of the program's data files, relative to the program's folder: "../share/vorelle-annotator/QVRA" for an
/// installed program, "../data/QVRA" in a build tree, or "QVRA". Empty if none of them exists.
boost::filesystem::path ProgramDataFolder(const boost::filesystem::path& program);

/// Copies the files of `data` that are missing into the installation's folder "QVRA", each completely or not at all,
/// and never overwrites anything. Does nothing in a folder without "Aircraft", which is not an installation. Returns an
/// error message for the user; empty on success.
std::string InstallDataFiles(const boost::filesystem::path& data, const boost::filesystem::path& installation);

/// The same for the running program's data and the working directory.
std::string InstallDataFiles();

} // namespace Annotator
