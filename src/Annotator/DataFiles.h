#pragma once

#include <boost/filesystem/path.hpp>
#include <string>

namespace Annotator {

/// Where the program's own data files stand: in "share/vorelle-annotator/QVRA" beside the folder of an installed
/// program, in "data/QVRA" there for one in its build tree, or in "QVRA" in the program's folder. Empty where there are
/// none.
boost::filesystem::path ProgramDataFolder(const boost::filesystem::path& program);

/// Puts each of the files of `data` that the installation's folder "QVRA" has no entry for there, whole or not at all;
/// nothing is ever overwritten. A folder without "Aircraft" is no installation and gets none. Returns what failed in
/// words for a person; empty when all is well.
std::string InstallDataFiles(const boost::filesystem::path& data, const boost::filesystem::path& installation);

/// Both for the running program and its working directory.
std::string InstallDataFiles();

} // namespace Annotator
