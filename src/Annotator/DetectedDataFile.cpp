#include "Annotator/DetectedDataFile.h"

#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"
#include "Utils/Files.h"
#include "Utils/Numbers.h"
#include "Utils/Text.h"

#include <stdexcept>
#include <tinyxml2.h>

namespace Annotator {

namespace {

constexpr int kBuildNumber = 1389;
constexpr const char* kBuildId = "2a5530b";

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

using tinyxml2::XMLElement;

[[noreturn]] void Refuse(const tinyxml2::XMLNode& at, const std::string& why) {
    throw std::runtime_error("line " + std::to_string(at.GetLineNum()) + ": " + why);
}

/// A field's text, and its element for error messages.
template <typename FromText>
auto Field(const XMLElement& part, const char* name, const char* needed, FromText fromText) {
    const XMLElement* element = part.FirstChildElement(name);
    if (!element)
        Refuse(part, std::string("this Part has no ") + name);
    const std::string text = element->GetText() ? element->GetText() : "";
    try {
        return fromText(text);
    } catch (const std::exception&) {
        Refuse(*element, std::string(name) + " '" + Utils::ToValidUtf8(text) + "' is not " + needed);
    }
}

std::int32_t IdFromText(const std::string& text) {
    const auto id = Utils::ParseWhole<std::int32_t>(text);
    if (!id || *id < 0)
        throw std::exception();
    return *id;
}

bool FlagFromText(const std::string& text) {
    if (text != "0" && text != "1")
        throw std::exception();
    return text == "1";
}

} // namespace

std::string DetectedDataFolder(CockpitModel::Reading reading) {
    if (reading == CockpitModel::Reading::Full)
        return "QVRA/AirLogs/full";
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

DetectedParts ReadDetectedData(const std::string& path) {
    const std::string xml = Utils::ReadFile(path);
    tinyxml2::XMLDocument document;
    if (document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error(xml.empty()
                                     ? "the file is empty or cannot be read"
                                     : "line " + std::to_string(document.ErrorLineNum()) + ": not well-formed XML");
    const XMLElement* root = document.RootElement();
    if (!root || root->Name() != std::string("NodePartList"))
        throw std::runtime_error("not a detected-data file: the root element is not NodePartList");
    DetectedParts parts;
    for (const XMLElement* part = root->FirstChildElement("Part"); part; part = part->NextSiblingElement("Part")) {
        const CockpitModel::PartAddress address{Field(*part, "NodeId", "a number of at least 0", IdFromText),
                                                Field(*part, "PartId", "a number of at least 0", IdFromText)};
        const DetectedPart detected{
            Field(*part, "InteractionType", "an interaction type", CockpitModel::TouchInteractionTypeFromText),
            Field(*part, "EventType", "an event type", CockpitModel::TouchEventTypeFromText),
            Field(*part, "Reverse", "0 or 1", FlagFromText)};
        if (!parts.emplace(address, detected).second)
            Refuse(*part, "node " + std::to_string(address.node) + " part " + std::to_string(address.part) +
                              " is in the file twice");
    }
    return parts;
}

} // namespace Annotator
