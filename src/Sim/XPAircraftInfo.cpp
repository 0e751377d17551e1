#include "Sim/XPAircraftInfo.h"

#include "CockpitModel/XPlane/XPAircraftCockpit.h"

namespace Sim {

std::unique_ptr<CockpitModel::AircraftCockpit> XPAircraftInfo::CreateCockpit() const {
    return CreateCockpitFor(CockpitModel::Reading::Plain);
}

std::unique_ptr<CockpitModel::AircraftCockpit> XPAircraftInfo::CreateCockpitFor(CockpitModel::Reading reading) const {
    return std::make_unique<CockpitModel::XPAircraftCockpit>(*this, reading);
}

std::unique_ptr<AircraftInfo> XPAircraftInfo::Clone() const {
    return std::make_unique<XPAircraftInfo>(*this);
}

} // namespace Sim
