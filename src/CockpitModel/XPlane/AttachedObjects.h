#pragma once

#include "Utils/LinearAlgebra.h"

#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// An object that the .acf attaches to the aircraft, with the keys "P _obja/<number>/...".
struct AttachedEntry {
    std::uint32_t number = 0;
    std::string file;                               ///< as the .acf writes it; starts in the aircraft's folder "objects"
    Utils::Vector3 place = Utils::Vector3::Zero();  ///< of its origin: metres, in X-Plane's axes
    bool turned = false;                            ///< the .acf also rotates it
    std::vector<std::string> faults;                ///< values that are not numbers
};

/// The entries with a file, by number. The last line of a key counts.
std::vector<AttachedEntry> ReadAttachedEntries(std::string_view acf);

/// The file of an entry, or why it has none.
struct AttachedFile {
    boost::filesystem::path path; ///< empty if it cannot be read
    std::string name;             ///< below the aircraft's folder, with '/'
    std::string problem;          ///< for the user; empty if it can be read
};

/// Finds an entry's file: exactly, else ignoring case. "../" leads out of "objects", but not out of the aircraft's
/// folder.
AttachedFile FindAttachedFile(const boost::filesystem::path& acf, const std::string& file);

/// Whether two paths lead to one file, by links or another spelling.
bool IsSameFile(const boost::filesystem::path& a, const boost::filesystem::path& b);

} // namespace CockpitModel
