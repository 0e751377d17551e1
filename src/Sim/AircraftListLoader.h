#pragma once

#include "Sim/AircraftInfo.h"

#include <memory>
#include <vector>

namespace Sim {

using AircraftList = std::vector<std::unique_ptr<AircraftInfo>>;

/// Source of the list of aircraft.
class AircraftListLoader {
public:
    virtual ~AircraftListLoader() = default;
    /// Scans the installation on each call.
    virtual AircraftList LoadAircraftList() = 0;
};

} // namespace Sim
