#pragma once

#include "Sim/AircraftListLoader.h"

namespace Sim {

/// Finds the aircraft of the X-Plane installation in the working directory: the first .acf file of each folder
/// Aircraft/<group>/<aircraft>, in the file system's listing order. File system errors are passed on to the caller.
class XPAircraftListLoader final : public AircraftListLoader {
public:
    AircraftList LoadAircraftList() override;
    /// Loads one aircraft from the path of its .acf file.
    static std::unique_ptr<AircraftInfo> LoadAircraft(const std::string& acfPath);
};

} // namespace Sim
