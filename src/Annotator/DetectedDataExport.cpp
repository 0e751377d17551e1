#include "Annotator/DetectedDataExport.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/FailureTexts.h"
#include "Logging/Logger.h"
#include "Utils/SaveFile.h"

#include <boost/filesystem.hpp>
#include <tinyxml2.h>

namespace Annotator {

namespace {

namespace fs = boost::filesystem;

constexpr int kBuildNumber = 1389;
constexpr const char* kBuildId = "2a5530b";
constexpr const char* kPlace = "Annotator\\AnnotatorWindow.cpp";
constexpr std::int32_t kLoadingLine = 368;
constexpr std::int32_t kSkippingLine = 410;

class PartListWriter {
public:
    PartListWriter() { printer.OpenElement("NodePartList"); }

    void Add(std::size_t nodeId, std::size_t partId, const CockpitModel::NodePart& part) {
        printer.OpenElement("Part");
        AddText("NodeId", std::to_string(nodeId));
        AddText("PartId", std::to_string(partId));
        AddText("InteractionType", TouchInteractionTypeToText(part.InteractionType));
        AddText("EventType", TouchEventTypeToText(part.EventType));
        AddText("Reverse", part.Reverse ? "1" : "0");
        printer.CloseElement();
    }

    std::string Finish() {
        printer.CloseElement();
        return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1)};
    }

private:
    void AddText(const char* element, const std::string& text) {
        printer.OpenElement(element);
        printer.PushText(text.c_str());
        printer.CloseElement();
    }

    tinyxml2::XMLPrinter printer;
};

std::string FailedText(const Sim::AircraftInfo& info, const std::string& reason) {
    return info.displayName + " (" + info.acfPath + "): " + reason;
}

OpenedAircraft Open(const Sim::AircraftInfo& info, CockpitModel::GaugeRepository& repository) {
    try {
        return OpenAircraft(info, repository);
    } catch (const std::exception& error) {
        throw AircraftExportError(FailedText(info, ReasonText(error)));
    }
}

void SaveOne(const Sim::AircraftInfo& info, const fs::path& folder, CockpitModel::GaugeRepository& repository,
             ExportResult& result) {
    Logging::Logger::Get().Log(kPlace, kLoadingLine,
                               "Loading aircraft for output: " + info.displayName + " - " + info.acfPath);
    const fs::path path = folder / DetectedDataFileName(info);
    const OpenedAircraft opened = Open(info, repository);
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

std::string DetectedDataFolder() {
    return "QVRA/AirLogs/" + std::to_string(kBuildNumber) + "-" + kBuildId + "-4";
}

std::string DetectedDataFileName(const Sim::AircraftInfo& info) {
    return Sim::FolderStem(info.acfPath) + ".xml";
}

std::string DetectedDataXml(const CockpitModel::SceneGraph& sceneGraph) {
    PartListWriter writer;
    const auto& nodes = sceneGraph.Nodes();
    for (std::size_t node = 0; node < nodes.size(); ++node)
        for (std::size_t part = 0; part < nodes[node]->parts.size(); ++part)
            writer.Add(node, part, *nodes[node]->parts[part]);
    return writer.Finish();
}

ExportResult SaveDetectedData(Sim::AircraftListLoader& loader) {
    const fs::path folder = DetectedDataFolder();
    fs::create_directories(folder);
    CockpitModel::GaugeRepository repository(fs::current_path().string());
    const Sim::AircraftList list = loader.LoadAircraftList();
    ExportResult result;
    for (const auto& info : list)
        SaveOne(*info, folder, repository, result);
    return result;
}

} // namespace Annotator
