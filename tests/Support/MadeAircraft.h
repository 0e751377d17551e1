#pragma once

#include "Sim/AircraftListLoader.h"
#include "Support/ModelBuilder.h"

#include <functional>

namespace Support {

using CockpitMaker = std::function<std::unique_ptr<CockpitModel::AircraftCockpit>()>;

inline CockpitMaker MakerOf(CockpitModel::ModelData model) {
    return [model = std::move(model)] { return std::make_unique<ModelCockpit>(model); };
}

/// An aircraft with a cockpit built by a test.
struct MadeAircraft final : Sim::AircraftInfo {
    MadeAircraft(const std::string& name, const std::string& folder, CockpitMaker maker) : make(std::move(maker)) {
        displayName = name;
        acfPath = "Aircraft/" + folder + "/plane.acf";
    }
    std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpit() const override { return make(); }
    std::unique_ptr<Sim::AircraftInfo> Clone() const override { return std::make_unique<MadeAircraft>(*this); }

    CockpitMaker make;
};

struct MadeAircraftList final : Sim::AircraftListLoader {
    Sim::AircraftList LoadAircraftList() override {
        ++scans;
        Sim::AircraftList list;
        for (const MadeAircraft& info : aircraft)
            list.push_back(info.Clone());
        return list;
    }

    std::vector<MadeAircraft> aircraft;
    int scans = 0;
};

} // namespace Support
