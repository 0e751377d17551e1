#include "Sim/AircraftInfo.h"

namespace Sim {

bool AircraftInfo::operator!=(const AircraftInfo& other) const {
    return acfPath != other.acfPath || displayName != other.displayName;
}

} // namespace Sim
