#pragma once

#include "Sim/AircraftInfo.h"

#include <memory>
#include <vector>

namespace Sim {

using AircraftList = std::vector<std::unique_ptr<AircraftInfo>>;

/// Where the aircraft come from.
class AircraftListLoader {
public:
    virtual ~AircraftListLoader() = default;
    /// Scans anew on each call.
    virtual AircraftList LoadAircraftList() = 0;
};

} // namespace Sim
