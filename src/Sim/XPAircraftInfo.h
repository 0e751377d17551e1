#pragma once

#include "Sim/AircraftInfo.h"

namespace Sim {

struct XPAircraftInfo final : AircraftInfo {
    std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpit() const override;
    std::unique_ptr<AircraftInfo> Clone() const override;
    std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpitFor(CockpitModel::Reading reading) const override;
};

} // namespace Sim
