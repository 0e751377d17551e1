#include "CockpitModel/XPlane/Surroundings.h"

#include <boost/filesystem/operations.hpp>
#include <set>
#include <tuple>

namespace fs = boost::filesystem;

namespace CockpitModel {

namespace {

bool IsInside(const AttachedEntry& entry) {
    return (entry.flags & (kInsideFlag | kInnerCockpitFlag)) != 0 && (entry.flags & kGlassFlag) == 0;
}

/// The files that are drawn, with their places.
class Drawn {
public:
    /// False for a file that is already there at this place.
    bool Add(const fs::path& file, const Utils::Vector3& place) {
        boost::system::error_code error;
        return files.insert({fs::canonical(file, error).string(), place.x(), place.y(), place.z()}).second;
    }

private:
    std::set<std::tuple<std::string, float, float, float>> files;
};

} // namespace

SurroundingObjects FindSurroundings(const fs::path& acf, std::string_view acfText, const fs::path& cockpitObject,
                                    const AttachedObjects& controls) {
    SurroundingObjects found;
    found.aircraftFolder = acf.parent_path().string();
    Drawn drawn;
    for (const AttachedObject& object : controls.objects)
        drawn.Add(object.path, object.place);
    for (const AttachedEntry& entry : ReadAttachedEntries(acfText)) {
        const AttachedFile file = IsInside(entry) ? FindAttachedFile(acf, entry.file) : AttachedFile();
        const Utils::Vector3 place = entry.place - controls.cockpitPlace;
        if (file.path.empty() || IsSameFile(file.path, cockpitObject) || !drawn.Add(file.path, place))
            continue;
        const std::string name = AttachedName(entry.number, file.name);
        if (entry.turned)
            found.remarks.push_back(name + " has a rotation; it is not drawn");
        else if (entry.onPart)
            found.remarks.push_back(name + " is on a part of the aircraft that may move; it is not drawn");
        else
            found.objects.push_back({name, file.path.string(), {place.x(), place.y(), -place.z()}, entry.mayBeHidden});
    }
    return found;
}

} // namespace CockpitModel
