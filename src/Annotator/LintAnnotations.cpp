#include "Annotator/LintAnnotations.h"

#include "Utils/Text.h"

#include <map>
#include <tinyxml2.h>

namespace Annotator {

namespace {

using enum LintSeverity;
using tinyxml2::XMLElement;

constexpr const char* kTypes = "write None, Tap, Twist, Move or Radio; in a test, also YokePart or YokePrimary";
constexpr const char* kEventTypes = "write Wheel, LClick/RClick or LClick/LClick";

std::uint32_t LineOf(const XMLElement& element) {
    return static_cast<std::uint32_t>(element.GetLineNum());
}

std::string TextOf(const XMLElement& element) {
    return element.GetText() ? element.GetText() : "";
}

template <auto fromText>
bool IsWord(const std::string& text) {
    try {
        fromText(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool IsFlag(const std::string& text) {
    return text == "0" || text == "1";
}

constexpr struct {
    const char* name;
    bool (*isKnown)(const std::string& text);
    const char* mend;
} kFields[] = {
    {"InteractionType", IsWord<CockpitModel::TouchInteractionTypeFromText>, kTypes},
    {"InteractionTypeTest", IsWord<CockpitModel::TouchInteractionTypeFromText>, kTypes},
    {"EventType", IsWord<CockpitModel::TouchEventTypeFromText>, kEventTypes},
    {"Reverse", IsFlag, "write 0 or 1"},
};

void CheckWords(const XMLElement& record, LintFindings& findings) {
    for (const auto& field : kFields) {
        const XMLElement* element = record.FirstChildElement(field.name);
        if (element && !field.isKnown(TextOf(*element)))
            findings.Add(Warning, "annotation-word", LineOf(*element),
                         std::string(field.name) + " '" + Utils::Readable(TextOf(*element)) + "' is not read",
                         field.mend);
    }
}

/// A record's place in the scene; negative where it names none.
struct Place {
    int node = -1, part = -1;
    auto operator<=>(const Place&) const = default;
};

Place PlaceOf(const XMLElement& record) {
    Place place;
    if (const XMLElement* node = record.FirstChildElement("NodeId"))
        node->QueryIntText(&place.node);
    if (const XMLElement* part = record.FirstChildElement("PartId"))
        part->QueryIntText(&place.part);
    return place;
}

bool IsThere(const Place& place, const CockpitModel::SceneGraph& sceneGraph) {
    const auto& nodes = sceneGraph.Nodes();
    return place.node >= 0 && std::cmp_less(place.node, nodes.size()) && place.part >= 0 &&
           std::cmp_less(place.part, nodes[static_cast<std::size_t>(place.node)]->parts.size());
}

void CheckPlace(const XMLElement& record, const CockpitModel::SceneGraph& sceneGraph,
                std::map<Place, std::uint32_t>& seen, LintFindings& findings) {
    const Place place = PlaceOf(record);
    const std::string name = "part " + std::to_string(place.node) + "," + std::to_string(place.part);
    if (place.node < 0 || place.part < 0)
        findings.Add(Warning, "annotation-place", LineOf(record), "an Override without a NodeId and a PartId",
                     "give it both, or take it out");
    else if (!IsThere(place, sceneGraph))
        findings.Add(Warning, "annotation-place", LineOf(record), "the cockpit has no " + name,
                     "take it out, or name the part that it was meant for; 'inspect' lists all parts");
    else if (const auto [first, isNew] = seen.emplace(place, LineOf(record)); !isNew)
        findings.Add(Warning, "annotation-place", first->second,
                     "line " + std::to_string(LineOf(record)) + " annotates " + name + " once more and takes its place",
                     "leave one of the two");
}

} // namespace

void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings) {
    tinyxml2::XMLDocument document;
    if (document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS) {
        findings.Add(Error, "annotation-xml", static_cast<std::uint32_t>(document.ErrorLineNum()),
                     "no well-formed XML, so that none of the annotations is read", "mend it, or take the file out");
        return;
    }
    std::map<Place, std::uint32_t> seen; // with the line
    const XMLElement* record = document.RootElement() ? document.RootElement()->FirstChildElement("Override") : nullptr;
    for (; record; record = record->NextSiblingElement("Override")) {
        CheckPlace(*record, sceneGraph, seen, findings);
        CheckWords(*record, findings);
    }
}

} // namespace Annotator
