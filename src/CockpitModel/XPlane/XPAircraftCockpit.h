#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/XPlane/AttachedObjects.h"

#include <boost/filesystem/path.hpp>

namespace Sim {
struct AircraftInfo;
}

namespace CockpitModel {

/// `<name>_cockpit.obj` beside `<name>.acf`.
boost::filesystem::path CockpitObjectPath(const boost::filesystem::path& acf);

/// The cockpit of an X-Plane aircraft.
struct XPAircraftCockpit final : AircraftCockpit {
    /// Reads the pilot's eye from the .acf. A value that is not a number throws a boost::bad_lexical_cast that names
    /// the file, the key, the line and the value.
    explicit XPAircraftCockpit(const Sim::AircraftInfo& info, Reading howToRead = Reading::Plain);

    bool IsValid() const override { return !cockpitObjPath.empty() || !attached.objects.empty(); }
    /// A cockpit object that is too large throws a std::runtime_error that says so. An attached object that cannot be
    /// read is left out, with a remark in the model.
    std::unique_ptr<ModelData> LoadModel() const override;
    SurroundingObjects FindSurroundings() const override;

    std::string acfPath;
    std::string aircraftFolder;
    std::string cockpitObjPath; ///< empty if there is no such file
    AttachedObjects attached;   ///< of the full reading

private:
    void LoadCockpitObject(ModelData& model) const;
};

} // namespace CockpitModel
