#include "Batch/DetectedData.h"

#include "Utils/Numbers.h"
#include "Utils/Paths.h"
#include "Utils/Text.h"

#include <stdexcept>
#include <tinyxml2.h>

namespace Batch {

namespace {

using tinyxml2::XMLElement;

[[noreturn]] void Refuse(const tinyxml2::XMLNode& at, const std::string& why) {
    throw std::runtime_error("line " + std::to_string(at.GetLineNum()) + ": " + why);
}

/// A field's text and its element, where a complaint about it points to.
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

DetectedParts ReadDetectedData(const std::string& path) {
    const std::string xml = Utils::ReadFile(path);
    tinyxml2::XMLDocument document;
    if (document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error(xml.empty()
                                     ? "it is empty or cannot be read"
                                     : "line " + std::to_string(document.ErrorLineNum()) + ": not well-formed XML");
    const XMLElement* root = document.RootElement();
    if (!root || root->Name() != std::string("NodePartList"))
        throw std::runtime_error("its root element is not NodePartList, so that it is no detected-data file");
    DetectedParts parts;
    for (const XMLElement* part = root->FirstChildElement("Part"); part; part = part->NextSiblingElement("Part")) {
        const std::pair place{Field(*part, "NodeId", "a number from 0 up", IdFromText),
                              Field(*part, "PartId", "a number from 0 up", IdFromText)};
        const DetectedPart detected{
            Field(*part, "InteractionType", "an interaction type", CockpitModel::TouchInteractionTypeFromText),
            Field(*part, "EventType", "an event type", CockpitModel::TouchEventTypeFromText),
            Field(*part, "Reverse", "0 or 1", FlagFromText)};
        if (!parts.emplace(place, detected).second)
            Refuse(*part, "node " + std::to_string(place.first) + " part " + std::to_string(place.second) +
                              " stands in the file twice");
    }
    return parts;
}

} // namespace Batch
