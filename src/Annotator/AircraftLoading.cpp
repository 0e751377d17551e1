#include "Annotator/AircraftLoading.h"

#include "CockpitModel/Touch/InteractionDetector.h"
#include "Utils/Files.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <stdexcept>

namespace Annotator {

namespace {

constexpr std::int32_t kNoTexture = -1;

/// The plain material is added after all others, so the rest of the model does not change.
void GivePlainMaterial(CockpitModel::ModelData& model) {
    auto& materials = model.materials.Children;
    const auto plain = static_cast<std::uint32_t>(materials.size());
    bool used = false;
    for (CockpitModel::RiffBlockPART& part : model.parts) {
        if (part.MaterialIndex < plain)
            continue;
        part.MaterialIndex = plain;
        used = true;
    }
    if (!used)
        return;
    CockpitModel::Material& material = materials.emplace_back();
    material.TextureDiffuse = kNoTexture;
    material.BlendKind = CockpitModel::kOpaqueBlend;
    material.Alpha = 1;
}

std::string NothingToTouchText(const CockpitModel::AircraftCockpit& cockpit) {
    std::string text = "nothing that can be touched was found; looked at";
    const char* separator = " ";
    for (const std::string& file : cockpit.lookedAt) {
        text += separator + file;
        separator = ", ";
    }
    return text;
}

} // namespace

OpenedAircraft OpenAircraft(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository,
                            CockpitModel::Reading reading) {
    OpenedAircraft opened;
    opened.cockpit = info.CreateCockpitFor(reading);
    opened.panels = std::make_unique<CockpitModel::PanelSet>();
    std::ifstream configuration = Utils::OpenFile(opened.cockpit->panelConfigPath);
    opened.panels->Read(configuration, repository);
    return opened;
}

BuiltAircraft BuildAircraft(const OpenedAircraft& opened, const LoadOptions& options) {
    const CockpitModel::Reading reading = opened.cockpit->reading;
    if (reading == CockpitModel::Reading::Full && !opened.cockpit->IsValid())
        throw std::runtime_error(NothingToTouchText(*opened.cockpit));
    BuiltAircraft built;
    built.model = opened.cockpit->LoadModel();
    if (options.untextured || reading == CockpitModel::Reading::Full)
        GivePlainMaterial(*built.model);
    built.sceneGraph = std::make_shared<CockpitModel::SceneGraph>(*built.model, *opened.cockpit, opened.panels.get());
    CockpitModel::InteractionDetector().Detect(*built.sceneGraph, reading);
    return built;
}

LoadedAircraft LoadAircraft(const Sim::AircraftInfo& info, const LoadOptions& options) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    LoadedAircraft loaded;
    loaded.opened = OpenAircraft(info, repository, options.reading);
    loaded.built = BuildAircraft(loaded.opened, options);
    return loaded;
}

} // namespace Annotator
