#pragma once

#include "Sim/AircraftListLoader.h"

namespace Sim {

/// Finds the aircraft of the X-Plane installation in the working directory: the first .acf file of each folder
/// Aircraft/<group>/<aircraft>, in the order in which the file system lists them. A file system error passes through.
class XPAircraftListLoader final : public AircraftListLoader {
public:
    AircraftList LoadAircraftList() override;
    /// One aircraft by its .acf file's path.
    static std::unique_ptr<AircraftInfo> LoadAircraft(const std::string& acfPath);
};

} // namespace Sim
