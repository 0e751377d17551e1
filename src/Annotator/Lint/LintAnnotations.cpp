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

constexpr const char* kNumbers = "write a number of at least 0";
constexpr const char* kTypes = "write None, Tap, Twist, Move or Radio; in a test also YokePart or YokePrimary";
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
                         Utils::ToValidUtf8(value.text) + "' is " + (value.inPart ? "used" : "ignored"),
                     advice->second);
    }
}

void CheckAddress(const AnnotationElement& element, const CockpitModel::SceneGraph& sceneGraph,
                  std::map<PartAddress, std::uint32_t>& seen, LintFindings& findings) {
    const PartAddress address = element.record.Address();
    const std::string name = "part " + ToText(address);
    if (address.node < 0 || address.part < 0)
        findings.Add(Warning, "annotation-place", element.line, "the Override does not identify a part",
                     "add a NodeId and a PartId of at least 0, or remove the Override");
    else if (!sceneGraph.FindPart(address))
        findings.Add(Warning, "annotation-place", element.line, "the cockpit has no " + name,
                     "remove the Override, or correct its NodeId and PartId; run 'inspect' to list all parts");
    else if (const auto [first, isNew] = seen.emplace(address, element.line); !isNew)
        findings.Add(Warning, "annotation-place", first->second,
                     "line " + std::to_string(element.line) + " annotates " + name +
                         " again and replaces this Override",
                     "remove one of the two");
}

} // namespace

void LintAnnotations(const std::string& xml, const CockpitModel::SceneGraph& sceneGraph, LintFindings& findings) {
    const CockpitModel::AnnotationText text = CockpitModel::ParseAnnotations(xml);
    if (!text.isXml)
        findings.Add(Error, "annotation-xml", text.errorLine, "not well-formed XML, so no annotations are read",
                     "correct the XML, or remove the file");
    std::map<PartAddress, std::uint32_t> seen; // and its line
    for (const AnnotationElement& element : text.elements) {
        CheckAddress(element, sceneGraph, seen, findings);
        CheckValues(element, findings);
    }
}

} // namespace Annotator
