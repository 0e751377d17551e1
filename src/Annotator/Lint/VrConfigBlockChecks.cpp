#include "Annotator/Lint/VrConfigBlockChecks.h"

#include "CockpitModel/XPlane/Manipulators.h"
#include "Utils/EditDistance.h"
#include "Utils/Text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace Annotator {

namespace {

using enum LintSeverity;
using CockpitModel::Manipulator;
using CockpitModel::ManipulatorFamily;
using CockpitModel::ManipulatorKeyword;
using CockpitModel::NodePart;
using CockpitModel::VrConfigBlock;
using CockpitModel::VrConfigDirective;
using CockpitModel::VrConfigFile;
using CockpitModel::VrConfigKey;
using Type = CockpitModel::TouchInteractionType;

constexpr std::size_t kLongestShown = 200; ///< bytes
/// Blocks for which a manipulator is suggested, so that a file of nonsense takes no time.
constexpr std::size_t kMostSuggestions = 200;
/// Typing errors up to which a keyword or names are suggested, at least and at most.
constexpr std::size_t kFewErrors = 3, kManyErrors = 16;

/// "objects/panel.obj, line 12"
std::string PlaceOf(const NodePart& part) {
    return part.node->graph->Model().objects.at(part.block.Object).path + ", line " +
           std::to_string(part.manipulator->line);
}

std::string Text(Type type) {
    return TouchInteractionTypeToText(type);
}

// -- did you mean -----------------------------------------------------------------------------------------------------

/// How much a manipulator differs from a block. Other datarefs count more than another keyword.
std::size_t Difference(const VrConfigBlock& block, const Manipulator& manipulator, std::size_t most) {
    const std::size_t keyword = block.keyword == manipulator.keyword
                                    ? 0
                                    : Utils::EditDistance(block.keyword, manipulator.keyword, kFewErrors - 1);
    if (std::ranges::is_permutation(block.names, manipulator.names))
        return keyword + (block.names == manipulator.names ? 0 : 1);
    const std::size_t common = std::min(block.names.size(), manipulator.names.size());
    // After an unknown keyword it is not known where the tooltip begins.
    const std::size_t surplus = CockpitModel::FindManipulatorKeyword(block.keyword) ? block.names.size() - common : 0;
    std::size_t names = (manipulator.names.size() - common + surplus) * kFewErrors;
    for (std::size_t i = 0; i < common && names <= most; ++i)
        names += Utils::EditDistance(block.names[i], manipulator.names[i], most);
    return keyword + names;
}

/// The manipulator nearest to a block, preferably one without a block; null if none is near.
const NodePart* NearestTo(const VrConfigBlock& block, const VrConfigCockpit& cockpit,
                          const std::map<std::string, std::uint32_t>& named) {
    std::size_t length = 0;
    for (const std::string& name : block.names)
        length += name.size();
    const std::size_t most = std::clamp(length / 4, kFewErrors, kManyErrors);
    std::pair<std::size_t, bool> least{most, true};
    const NodePart* nearest = nullptr;
    for (const auto& [key, parts] : cockpit.parts.ByKey()) {
        const std::pair difference{Difference(block, *parts.front()->manipulator, most), named.contains(key)};
        if (difference < least || (!nearest && difference == least)) {
            least = difference;
            nearest = parts.front();
        }
    }
    return nearest;
}

std::string DidYouMean(const NodePart* nearest) {
    return nearest
               ? "; did you mean '" + Shortened(VrConfigKey(*nearest->manipulator)) + "' of " + PlaceOf(*nearest) + "?"
               : std::string();
}

// -- directives -------------------------------------------------------------------------------------------------------

/// The type of a manipulator's touch that the directives of a block need; empty if they fit any.
std::optional<Type> NeededType(const VrConfigBlock& block, const Manipulator& manipulator) {
    const VrConfigDirective* const action = block.Find("ACTION");
    if (block.Find("YOKE_MANIP_ROTATE") || block.Find("YOKE_MANIP_TRANSLATE"))
        return Type::YokePart;
    const ManipulatorKeyword* const keyword = CockpitModel::FindManipulatorKeyword(block.ActionKeyword());
    if (!keyword || keyword->family == ManipulatorFamily::DragXY || keyword->family == ManipulatorFamily::Untouched)
        return std::nullopt;
    if (!action) // a switch may be a rotary selector
        return block.Find("DEG_PER_ACTION") && keyword->family != ManipulatorFamily::Switch ? std::optional(Type::Twist)
                                                                                            : std::nullopt;
    return keyword->family == ManipulatorFamily::Button ? Type::Tap : VrConfigKind(block, manipulator);
}

bool Agree(Type needed, Type type) {
    return needed == type || (IsYoke(needed) && IsYoke(type));
}

/// The directive that decides NeededType.
const VrConfigDirective& DecidingDirective(const VrConfigBlock& block) {
    for (const char* keyword : {"YOKE_MANIP_ROTATE", "YOKE_MANIP_TRANSLATE", "ACTION", "DEG_PER_ACTION"})
        if (const VrConfigDirective* const directive = block.Find(keyword))
            return *directive;
    return block.directives.front();
}

std::string DirectiveText(const VrConfigDirective& directive) {
    return directive.keyword == "ACTION" ? "ACTION " + Shortened(directive.values.empty() ? "" : directive.values[0])
                                         : directive.keyword;
}

/// A draw call of the manipulator may be a label beside the control, so one that agrees is enough.
void CheckType(const VrConfigBlock& block, const std::vector<const NodePart*>& parts, const VrConfigCockpit& cockpit,
               LintFindings& findings) {
    const NodePart* disagreeing = nullptr;
    std::optional<Type> needed;
    for (const NodePart* part : parts) {
        const std::optional<Type> type = NeededType(block, *part->manipulator);
        if (!type || Agree(*type, cockpit.TypeOf(*part)))
            return;
        if (!disagreeing) {
            disagreeing = part;
            needed = type;
        }
    }
    if (!disagreeing)
        return;
    const VrConfigDirective& directive = DecidingDirective(block);
    const std::string& cursor = disagreeing->manipulator->cursor;
    findings.Add(Warning, "block-contradiction", directive.line,
                 DirectiveText(directive) + " is for the type " + Text(*needed) + ", but " +
                     Shortened(disagreeing->manipulator->keyword) +
                     (cursor.empty() ? "" : " with the cursor " + Shortened(cursor)) + " of " + PlaceOf(*disagreeing) +
                     " is " + Text(cockpit.TypeOf(*disagreeing)),
                 IsYoke(*needed) ? "remove the directive, or correct the keyword and names after BEGIN_MANIP"
                                 : "correct the directive; if it is right, give the manipulator a cursor that fits, or "
                                   "annotate its type");
}

/// The keyword that ACTION names may be one of a later X-Plane, or a typing error.
void CheckActionKeyword(const VrConfigBlock& block, LintFindings& findings) {
    const std::string word(block.ActionKeyword());
    std::string like;
    for (const ManipulatorKeyword& keyword : CockpitModel::ManipulatorKeywords())
        if (like.empty() && Utils::EditDistance(word, keyword.name, kFewErrors - 1) < kFewErrors)
            like = keyword.name;
    findings.Add(like.empty() ? Note : Warning, "unknown-action", block.Find("ACTION")->line,
                 "ACTION " + Shortened(word) + " is no manipulator that this version knows" +
                     (like.empty() ? "" : "; did you mean " + like + "?"),
                 "write the keyword of a manipulator without ATTR_manip_");
}

void CheckDirectives(const VrConfigBlock& block, const std::vector<const NodePart*>& parts,
                     const VrConfigCockpit& cockpit, LintFindings& findings) {
    const ManipulatorKeyword* const keyword = CockpitModel::FindManipulatorKeyword(block.ActionKeyword());
    const VrConfigDirective* const degrees = block.Find("DEG_PER_ACTION");
    if (!keyword && block.Find("ACTION"))
        CheckActionKeyword(block, findings);
    else if (keyword && degrees && keyword->family == ManipulatorFamily::Button)
        findings.Add(Warning, "block-contradiction", degrees->line,
                     "DEG_PER_ACTION is for what turns, but " + std::string(keyword->name) + " is a button",
                     "remove DEG_PER_ACTION, or add an ACTION that turns, such as axis_knob");
    else
        CheckType(block, parts, cockpit, findings);
}

void AddUnmatched(const VrConfigBlock& block, const NodePart* nearest, bool incomplete, LintFindings& findings) {
    findings.Add(
        incomplete ? Note : Warning, "block-unmatched", block.firstLine,
        "'" + Shortened(VrConfigKey(block)) + "' matches no draw call" +
            (incomplete ? ", but an attached object could not be read" : "") + DidYouMean(nearest),
        "write keyword, datarefs and commands as in the object, without ATTR_manip_; 'manips --full' lists them");
}

std::string ControlText(const NodePart& part) {
    const std::string& tooltip = part.manipulator->tooltip;
    return (tooltip.empty() ? "" : "'" + Shortened(tooltip) + "', ") + Shortened(VrConfigKey(*part.manipulator));
}

} // namespace

VrConfigCockpit::VrConfigCockpit(const Sim::AircraftInfo& info, const CockpitModel::SceneGraph& sceneGraph,
                                 bool lacksObjects)
    : graph(sceneGraph), parts(sceneGraph), annotations(sceneGraph), incomplete(lacksObjects) {
    annotations.Read(CockpitModel::FindAnnotations(info, CockpitModel::Reading::Full).path);
}

Type VrConfigCockpit::TypeOf(const NodePart& part) const {
    return annotations.Evaluate(part).interactionType;
}

const NodePart* VrConfigCockpit::Wanting(const std::vector<const NodePart*>& some) const {
    const auto found = std::ranges::find_if(
        some, [&](const NodePart* part) { return WantsVrConfigBlock(*part->manipulator, TypeOf(*part)); });
    return found == some.end() ? nullptr : *found;
}

void CheckBlocks(const VrConfigFile& file, const VrConfigCockpit& cockpit, LintFindings& findings) {
    std::map<std::string, std::uint32_t> named; // and the line of its first block
    for (const VrConfigBlock& block : file.blocks)
        named.try_emplace(VrConfigKey(block), block.firstLine);
    std::size_t suggestions = 0;
    for (const VrConfigBlock& block : file.blocks) {
        if (block.keyword.empty())
            continue; // a fault of the text
        const std::uint32_t first = named.at(VrConfigKey(block));
        const std::vector<const NodePart*>& parts = cockpit.parts.Of(block);
        if (first != block.firstLine)
            findings.Add(Warning, "block-twice", block.firstLine,
                         "line " + std::to_string(first) + " begins a block for the same manipulator, '" +
                             Shortened(VrConfigKey(block)) + "'",
                         "remove one of the two blocks");
        else if (parts.empty())
            AddUnmatched(block, ++suggestions > kMostSuggestions ? nullptr : NearestTo(block, cockpit, named),
                         cockpit.incomplete, findings);
        CheckDirectives(block, parts, cockpit, findings);
    }
}

void CheckMissingBlocks(const VrConfigFile& file, const VrConfigCockpit& cockpit, std::vector<LintFinding>& findings) {
    std::set<std::string> named;
    for (const VrConfigBlock& block : file.blocks)
        named.insert(VrConfigKey(block));
    for (const auto& [key, parts] : cockpit.parts.ByKey()) {
        const NodePart* const part = named.contains(key) ? nullptr : cockpit.Wanting(parts);
        if (!part)
            continue;
        const std::string& object = cockpit.graph.Model().objects.at(part->block.Object).path;
        LintFindings(object, findings)
            .Add(Note, "block-missing", part->manipulator->line,
                 ControlText(*part) + " (" + Text(cockpit.TypeOf(*part)) + ") has no block in the VR configuration",
                 "add a block for it, or run 'vorelle-batch vrconfig write --merge'");
    }
}

std::size_t CountWanted(const VrConfigCockpit& cockpit) {
    return static_cast<std::size_t>(std::ranges::count_if(
        cockpit.parts.ByKey(), [&](const auto& entry) { return cockpit.Wanting(entry.second) != nullptr; }));
}

std::string Shortened(std::string_view text) {
    const bool isLong = text.size() > kLongestShown;
    return Utils::ToValidUtf8(text.substr(0, kLongestShown)) + (isLong ? "..." : "");
}

} // namespace Annotator
