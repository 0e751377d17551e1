#pragma once

#include "CockpitModel/AircraftCockpit.h"

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
    explicit XPAircraftCockpit(const Sim::AircraftInfo& info);

    bool IsValid() const override { return !cockpitObjPath.empty(); }
    /// An object file that is too large throws a std::runtime_error that says so.
    std::unique_ptr<ModelData> LoadModel() const override;

    std::string aircraftFolder;
    std::string cockpitObjPath; ///< empty if there is no such file
};

} // namespace CockpitModel
