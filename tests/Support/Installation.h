#pragma once

#include "Support/ObjText.h"
#include "Support/TemporaryFolder.h"

#include <string>

namespace Support {

/// An X-Plane installation in a temporary folder.
class Installation : public TemporaryFolder {
public:
    Installation() { boost::filesystem::create_directories(path / "QVRA"); }

    /// An aircraft "plane.acf" in a folder such as "Aircraft/Props/Cub", with further lines of its .acf. Returns its
    /// acfPath.
    std::string Aircraft(const std::string& folder, const std::string& displayName,
                         const std::string& acfLines = {}) const {
        const std::string acfPath = folder + "/plane.acf";
        Write(acfPath, "I\n1100 Version\nP acf/_descrip " + displayName + "\n" + acfLines);
        return acfPath;
    }
    std::string Aircraft(const std::string& folder, const std::string& displayName, const ObjText& cockpit) const {
        Write(folder + "/plane_cockpit.obj", cockpit.Text());
        return Aircraft(folder, displayName);
    }

    /// Writes the annotation file, with these "Override" elements, of the aircraft in a folder of that name.
    void Annotations(const std::string& folderStem, const std::string& overrides) const {
        Write("QVRA/Annotations/" + folderStem + ".xml", "<Overrides>" + overrides + "</Overrides>");
    }
};

/// An "Override" element that expects a part to have a type.
inline std::string Expectation(int nodeId, int partId, const std::string& type) {
    return "<Override><NodeId>" + std::to_string(nodeId) + "</NodeId><PartId>" + std::to_string(partId) +
           "</PartId><InteractionTypeTest>" + type + "</InteractionTypeTest></Override>";
}

} // namespace Support
