#include "Sim/XPAircraftInfo.h"

#include "CockpitModel/XPlane/XPAircraftCockpit.h"

namespace Sim {

std::unique_ptr<CockpitModel::AircraftCockpit> XPAircraftInfo::CreateCockpit() const {
    return std::make_unique<CockpitModel::XPAircraftCockpit>(*this);
}

std::unique_ptr<AircraftInfo> XPAircraftInfo::Clone() const {
    return std::make_unique<XPAircraftInfo>(*this);
}

} // namespace Sim
