#pragma once

#include "Utils/LinearAlgebra.h"

#include <boost/filesystem/path.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace CockpitModel {

/// Values of "_obj_flags", measured on aircraft, not documented.
enum ObjectFlag : std::uint32_t { kInsideFlag = 0x1, kGlassFlag = 0x2, kInnerCockpitFlag = 0x800 };

/// An object that the .acf attaches to the aircraft, with the keys "P _obja/<number>/...".
struct AttachedEntry {
    std::uint32_t number = 0;
    std::string file;                              ///< as the .acf writes it; starts in the aircraft's folder "objects"
    Utils::Vector3 place = Utils::Vector3::Zero(); ///< of its origin: metres, in X-Plane's axes
    bool turned = false;                           ///< the .acf also rotates it
    std::uint32_t flags = 0;                       ///< of ObjectFlag
    bool onPart = false;                           ///< on a wing, a gear or another part that may move
    bool mayBeHidden = false;                      ///< by a dataref
    std::vector<std::string> faults;               ///< values that are not numbers
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

/// An attached object in which something can be touched.
struct AttachedObject {
    std::uint32_t number = 0; ///< of its entry
    std::string name;         ///< below the aircraft's folder, with '/'
    std::string path;
    Utils::Vector3 place = Utils::Vector3::Zero(); ///< from the cockpit object: metres, in X-Plane's axes
};

struct AttachedObjects {
    Utils::Vector3 cockpitPlace = Utils::Vector3::Zero(); ///< of the cockpit object: metres, in X-Plane's axes
    std::vector<AttachedObject> objects;                  ///< in the order of their numbers
    std::vector<std::string> lookedAt;                    ///< names of the files in which something to touch was sought
    std::vector<std::string> remarks;                     ///< one for each object that is not read, for the user
};

/// Scans the attached objects. `cockpitObject` is the path of the cockpit object, empty if there is none.
AttachedObjects FindAttachedObjects(const boost::filesystem::path& acf, std::string_view acfText,
                                    const boost::filesystem::path& cockpitObject);

/// "attached object 3 (objects/a.obj)": how messages name one.
std::string AttachedName(std::uint32_t number, const std::string& file);

/// Whether two paths lead to one file, by links or another spelling.
bool IsSameFile(const boost::filesystem::path& a, const boost::filesystem::path& b);

} // namespace CockpitModel
