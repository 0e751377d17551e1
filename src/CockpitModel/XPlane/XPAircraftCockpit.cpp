#include "CockpitModel/XPlane/XPAircraftCockpit.h"

#include "CockpitModel/XPlane/AttachedModels.h"
#include "CockpitModel/XPlane/Surroundings.h"
#include "CockpitModel/XPlane/XPObjConverter.h"
#include "CockpitModel/XPlane/XPObjReader.h"
#include "Logging/Logger.h"
#include "Sim/AcfFile.h"
#include "Sim/AircraftInfo.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/lexical_cast.hpp>
#include <fstream>
#include <stdexcept>

namespace CockpitModel {

namespace {

/// Fixed source path of these log lines.
constexpr const char* kPlace = "CockpitModel\\XPAircraftCockpit.cpp";

constexpr float kMetresPerFoot = 0.3048f;

/// A value that is not a number; what() gives its location.
struct BadAcfNumber final : boost::bad_lexical_cast {
    BadAcfNumber(const std::string& file, std::string_view key, std::ptrdiff_t line, std::string_view value)
        : text(file + ": " + std::string(key) + " of line " + std::to_string(line) + " is \"" + std::string(value) +
               "\"; it needs a number") {}
    const char* what() const noexcept override { return text.c_str(); }

    std::string text;
};

/// Reads every line of the key although the last one wins, so that any bad value is reported.
void ReadFeet(const std::string& acfPath, const std::string& acf, std::string_view key, float metresPerFoot,
              float& metres) {
    Sim::ForEachAcfProperty(acf, key, [&](std::string_view value) {
        const std::string_view feet = value.substr(0, value.find_first_of(Utils::kBlanks));
        float number = 0;
        if (!boost::conversion::try_lexical_convert(feet.data(), feet.size(), number))
            throw BadAcfNumber(acfPath, key, 1 + std::count(acf.data(), feet.data(), '\n'), feet);
        metres = number * metresPerFoot;
    });
}

} // namespace

boost::filesystem::path CockpitObjectPath(const boost::filesystem::path& acf) {
    return acf.parent_path() / (acf.stem().string() + "_cockpit.obj");
}

XPAircraftCockpit::XPAircraftCockpit(const Sim::AircraftInfo& info, Reading howToRead) {
    Logging::Logger::Get().Log(kPlace, __LINE__, "AircraftCockpit::GenerateXP");
    acfPath = info.acfPath;
    aircraftFolder = boost::filesystem::path(acfPath).parent_path().string();
    cockpitObjPath = Utils::FindIgnoringCase(CockpitObjectPath(acfPath)).string();

    const std::string acf = Utils::ReadFile(acfPath);
    ReadFeet(info.acfPath, acf, "acf/_pe_xyz/0", kMetresPerFoot, pilotEye.x());
    ReadFeet(info.acfPath, acf, "acf/_pe_xyz/1", kMetresPerFoot, pilotEye.y());
    ReadFeet(info.acfPath, acf, "acf/_pe_xyz/2", -kMetresPerFoot, pilotEye.z()); // X-Plane's axes are right-handed
    reading = howToRead;
    if (reading == Reading::Plain)
        return;
    attached = FindAttachedObjects(acfPath, acf, cockpitObjPath);
    lookedAt = attached.lookedAt;
    lookedAt.insert(lookedAt.begin(), CockpitObjectPath(acfPath).filename().string());
    // The model's origin is that of the cockpit object; the eye counts from the aircraft's reference point.
    const Utils::Vector3& place = attached.cockpitPlace;
    modelOffset = {-place.x(), -place.y(), place.z()};
}

std::unique_ptr<ModelData> XPAircraftCockpit::LoadModel() const {
    auto model = std::make_unique<ModelData>();
    model->sourcePath = cockpitObjPath;
    LoadCockpitObject(*model);
    if (reading == Reading::Plain)
        return model;
    model->remarks = attached.remarks;
    AddAttachedObjects(aircraftFolder, attached.objects, *model);
    for (const std::string& remark : model->remarks)
        Logging::Logger::Get().Log(kPlace, __LINE__, remark);
    return model;
}

SurroundingObjects XPAircraftCockpit::FindSurroundings() const {
    if (reading == Reading::Plain)
        return {};
    return CockpitModel::FindSurroundings(acfPath, Utils::ReadFile(acfPath), cockpitObjPath, attached);
}

void XPAircraftCockpit::LoadCockpitObject(ModelData& model) const {
    if (const std::string tooLarge = Utils::TooLargeText(cockpitObjPath); !tooLarge.empty())
        throw std::runtime_error(tooLarge);
    XPObjData data;
    std::ifstream stream = Utils::OpenFile(cockpitObjPath);
    if (!stream.is_open())
        Logging::Logger::Get().Log(kPlace, __LINE__, "There is no readable object at \"" + cockpitObjPath + "\"");
    ReadXPObj(stream, data, reading);
    XPObjPlacement placement;
    placement.reading = reading;
    placement.textureFolder = aircraftFolder;
    if (!cockpitObjPath.empty())
        model.objects.push_back({boost::filesystem::path(cockpitObjPath).filename().string(), cockpitObjPath});
    XPObjConverter().Convert(aircraftFolder, data, model, placement);
}

} // namespace CockpitModel
