#include "Annotator/DetectedDataExport.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/DetectedDataFile.h"
#include "Annotator/FailureTexts.h"
#include "Logging/Logger.h"
#include "Utils/SaveFile.h"

#include <boost/filesystem.hpp>

namespace Annotator {

namespace {

namespace fs = boost::filesystem;

constexpr const char* kPlace = "Annotator\\AnnotatorWindow.cpp";
constexpr std::int32_t kLoadingLine = 368;
constexpr std::int32_t kSkippingLine = 410;

std::string FailedText(const Sim::AircraftInfo& info, const std::string& reason) {
    return info.displayName + " (" + info.acfPath + "): " + reason;
}

OpenedAircraft Open(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository,
                    CockpitModel::Reading reading) {
    try {
        return OpenAircraft(info, repository, reading);
    } catch (const std::exception& error) {
        throw AircraftExportError(FailedText(info, ReasonText(error)));
    }
}

void SaveOne(const Sim::AircraftInfo& info, const fs::path& folder, CockpitModel::GaugeRepository& repository,
             CockpitModel::Reading reading, ExportResult& result) {
    Logging::Logger::Get().Log(kPlace, kLoadingLine,
                               "Loading aircraft for output: " + info.displayName + " - " + info.acfPath);
    const fs::path path = folder / DetectedDataFileName(info);
    const OpenedAircraft opened = Open(info, repository, reading);
    try {
        const BuiltAircraft built = BuildAircraft(opened);
        if (const auto saved = Utils::SaveFile(path.string(), DetectedDataXml(*built.sceneGraph))) {
            ++result.files;
        } else {
            Logging::Logger::Get().Log(HERE, saved.error);
            result.failed.push_back(FailedText(info, saved.error));
        }
    } catch (const std::exception& error) {
        result.failed.push_back(FailedText(info, ReasonText(error)));
        Logging::Logger::Get().Log(kPlace, kSkippingLine, "Failed to load model.  Skipping...");
    }
}

} // namespace

ExportResult SaveDetectedData(Sim::AircraftListLoader& loader, CockpitModel::Reading reading) {
    const fs::path folder = DetectedDataFolder(reading);
    fs::create_directories(folder);
    CockpitModel::GaugeRepository repository(fs::current_path().string());
    const Sim::AircraftList list = loader.LoadAircraftList();
    ExportResult result;
    for (const auto& info : list)
        SaveOne(*info, folder, repository, reading, result);
    return result;
}

} // namespace Annotator
