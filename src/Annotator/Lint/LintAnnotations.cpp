#include "Annotator/Lint/LintAnnotations.h"

#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Utils/Text.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace Annotator {

namespace {

using enum LintSeverity;
using CockpitModel::AnnotationElement;
using CockpitModel::PartAddress;

constexpr const char* kNumbers = "write a number from 0";
constexpr const char* kTypes = "write None, Tap, Twist, Move or Radio; in a test, also YokePart or YokePrimary";
constexpr std::pair<std::string_view, const char*> kAdvice[] = {
    {"NodeId", kNumbers},
    {"PartId", kNumbers},
    {"InteractionType", kTypes},
    {"InteractionTypeTest", kTypes},
    {"EventType", "write Wheel, LClick/RClick or LClick/LClick"},
    {"Reverse", "write 0 or 1"},
};

void CheckValues(const AnnotationElement& element, LintFindings& findings) {
    for (const CockpitModel::UnreadValue& value : element.unread) {
        const auto* advice = std::ranges::find(kAdvice, value.name, &std::pair<std::string_view, const char*>::first);
        findings.Add(Warning, "annotation-word", value.line,
                     std::string(value.inPart ? "only the beginning of " : "") + value.name + " '" +
                         Utils::ToValidUtf8(value.text) + "' is " + (value.inPart ? "read" : "not read"),
                     advice->second);
    }
}

void CheckAddress(const AnnotationElement& element, const CockpitModel::SceneGraph& sceneGraph,
                  std::map<PartAddress, std::uint32_t>& seen, LintFindings& findings) {
    const PartAddress address = element.record.Address();
    const std::string name = "part " + ToText(address);
    if (address.node < 0 || address.part < 0)
        findings.Add(Warning, "annotation-place", element.line, "an Override that names no part",
                     "give it a NodeId and a PartId, numbers from 0, or take it out");
    else if (!sceneGraph.FindPart(address))
        findings.Add(Warning, "annotation-place", element.line, "the cockpit has no " + name,
                     "take it out, or name the part that it was meant for; 'inspect' lists all parts");
    else if (const auto [first, isNew] = seen.emplace(address, element.line); !isNew)
        findings.Add(Warning, "annotation-place", first->second,
                     "line " + std::to_string(element.line) + " annotates " + name + " once more and takes its place",
                     "leave one of the two");
}

} // namespace

void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings) {
    const CockpitModel::AnnotationText text = CockpitModel::ParseAnnotations(xml);
    if (!text.isXml)
        findings.Add(Error, "annotation-xml", text.errorLine,
                     "no well-formed XML, so that none of the annotations is read", "correct it, or take the file out");
    std::map<PartAddress, std::uint32_t> seen; // with the line
    for (const AnnotationElement& element : text.elements) {
        CheckAddress(element, sceneGraph, seen, findings);
        CheckValues(element, findings);
    }
}

} // namespace Annotator
