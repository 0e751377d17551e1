#include "Annotator/AircraftRoad.h"

#include "CockpitModel/Touch/InteractionDetector.h"
#include "Utils/Paths.h"

#include <fstream>

namespace Annotator {

OpenedAircraft OpenAircraft(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository) {
    OpenedAircraft opened;
    opened.cockpit = info.CreateCockpit();
    opened.panels = std::make_unique<CockpitModel::PanelSet>();
    std::ifstream configuration(Utils::StreamPath(opened.cockpit->panelConfigPath));
    opened.panels->Read(configuration, repository);
    return opened;
}

BuiltAircraft BuildAircraft(const OpenedAircraft& opened) {
    BuiltAircraft built;
    built.model = opened.cockpit->LoadModel();
    built.sceneGraph = std::make_shared<CockpitModel::SceneGraph>(*built.model, *opened.cockpit, opened.panels.get());
    CockpitModel::InteractionDetector().Detect(*built.sceneGraph);
    return built;
}

} // namespace Annotator
