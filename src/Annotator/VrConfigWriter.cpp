#include "Annotator/VrConfigWriter.h"

#include "Annotator/VrConfigKnobs.h"
#include "Annotator/VrConfigYokes.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/VrConfigFile.h"
#include "CockpitModel/XPlane/VrConfigParts.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <cmath>
#include <map>
#include <set>
#include <stdexcept>
#include <vector>

namespace Annotator {

namespace {

using CockpitModel::AcfPoints;
using CockpitModel::AnnotationStore;
using CockpitModel::Manipulator;
using CockpitModel::NodePart;
using CockpitModel::TouchInteractionType;
using CockpitModel::VrConfigFile;
using Utils::Vector3;

constexpr const char* kHeader = "A\n1100\nVRCONFIG\n\n# Places count from the aircraft's reference point, in metres.\n"
                                "REF_POINT_ACF\n";
constexpr float kShownLength = 10'000; ///< parts of a metre that are written
/// A hotspot this near to a place, in metres, is that of the seat there.
constexpr float kSameSeat = 0.5f;
constexpr float kLeastFromMiddle = 0.1f; ///< of an eye, in metres, for a seat at the other side
/// The box around a seated head, in metres: the upper body is below it and behind it.
const Vector3 kBoxBelow(-0.3f, -0.7f, -0.5f), kBoxAbove(0.3f, 0.1f, 0.1f);

/// The parts of the aircraft that get blocks, and those of each block.
struct Controls {
    struct Group {
        std::string key;
        std::vector<const NodePart*> parts; ///< the primary yoke first
        bool isYoke = false;
    };

    std::vector<Group> groups;          ///< in the order of their first parts
    std::vector<const NodePart*> yokes; ///< also those without a manipulator
};

bool IsDraggedYoke(const NodePart& part, TouchInteractionType type) {
    return IsYoke(type) && part.manipulator->family == CockpitModel::ManipulatorFamily::DragXY;
}

Controls FindControls(const CockpitModel::SceneGraph& sceneGraph, const AnnotationStore& annotations) {
    Controls controls;
    std::map<std::string, std::size_t> places;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts) {
            const TouchInteractionType type = annotations.Evaluate(*part).interactionType;
            if (IsYoke(type))
                controls.yokes.push_back(part.get());
            if (!part->manipulator || part->manipulator->names.empty())
                continue; // a block needs names
            const bool isYoke = IsDraggedYoke(*part, type);
            if (!isYoke && type != TouchInteractionType::Twist)
                continue;
            const std::string key = VrConfigKey(*part->manipulator);
            const auto [place, isNew] = places.try_emplace(key, controls.groups.size());
            if (isNew)
                controls.groups.push_back({key, {}, isYoke});
            auto& [groupKey, parts, ofYoke] = controls.groups[place->second];
            if (ofYoke == isYoke)
                parts.insert(type == TouchInteractionType::YokePrimary ? parts.begin() : parts.end(), part.get());
        }
    return controls;
}

/// A file's text as part of a comment.
std::string OneLine(std::string_view text) {
    std::string line = Utils::ToValidUtf8(text);
    std::ranges::replace_if(
        line, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; }, ' ');
    return line;
}

std::string ControlText(const NodePart& part, const AnnotationStore& annotations) {
    const auto record = annotations.Get(part);
    const std::string tooltip = record && record->Tooltip ? *record->Tooltip : part.manipulator->tooltip;
    const std::string& object = part.node->graph->Model().objects.at(part.block.Object).name;
    return OneLine(tooltip + (tooltip.empty() ? "" : ": ") + object) + ", line " +
           std::to_string(part.manipulator->line);
}

/// All names of the manipulator's keyword, as its line has them; "none" stands for no dataref.
std::vector<std::string> WrittenNames(const Manipulator& manipulator) {
    std::vector<std::string> names(static_cast<std::size_t>(manipulator.firstName), "none");
    names.insert(names.end(), manipulator.names.begin(), manipulator.names.end());
    if (const auto* keyword = CockpitModel::FindManipulatorKeyword(manipulator.keyword))
        names.resize(std::max<std::size_t>(names.size(), keyword->names), "none");
    return names;
}

/// Writes entries, each after an empty line, and counts them.
class Writer {
public:
    explicit Writer(std::string start) { made.text = std::move(start); }

    void Hotspot(const std::string& comment, const std::string& name, const Vector3& head) {
        Block({comment}, "TELEPORT_HOTSPOT", " SITTING " + name,
              {"AABB" + Text(head + kBoxBelow) + Text(head + kBoxAbove), "PRESET_XYZ" + Text(head), "PRESET_PSI 0",
               "PRESET_THE 0", "PRESET_PHI 0"});
        ++made.hotspots;
    }

    void Manip(const NodePart& part, std::string comment, const VrConfigLines& lines) {
        std::vector<std::string> comments{std::move(comment)};
        comments.insert(comments.end(), lines.comments.begin(), lines.comments.end());
        const Manipulator& manipulator = *part.manipulator;
        Block(comments, "MANIP",
              " " + manipulator.keyword + " " + boost::algorithm::join(WrittenNames(manipulator), " "),
              lines.directives);
        ++made.blocks;
        made.guesses += lines.guessed;
    }

    VrConfigText Finish() { return std::move(made); }

private:
    static std::string Text(const Vector3& v) {
        return VrConfigRounded(v.x(), kShownLength) + VrConfigRounded(v.y(), kShownLength) +
               VrConfigRounded(v.z(), kShownLength);
    }

    void Block(const std::vector<std::string>& comments, const std::string& kind, const std::string& values,
               const std::vector<std::string>& directives) {
        made.text += '\n';
        for (const std::string& comment : comments)
            made.text += "# " + comment + '\n';
        made.text += "BEGIN_" + kind + values + '\n';
        for (const std::string& directive : directives)
            made.text += '\t' + directive + '\n';
        made.text += "END_" + kind + '\n';
    }

    VrConfigText made;
};

bool HasHotspotAt(const VrConfigFile& file, const Vector3& place) {
    return std::ranges::any_of(file.hotspots, [&](const CockpitModel::VrConfigHotspot& hotspot) {
        if (!hotspot.head)
            return false;
        const auto [x, y, z] = *hotspot.head;
        return Utils::Length(Vector3(x, y, z) - place) <= kSameSeat;
    });
}

void WriteHotspots(const VrConfigFile& existing, const VrConfigPlaces& places, const Vector3& eye,
                   const std::vector<const NodePart*>& yokes, Writer& writer) {
    if (!HasHotspotAt(existing, eye))
        writer.Hotspot("The head is where the .acf has the pilot's eye.", "Pilot's Seat", eye);
    const Vector3 other = places.Mirrored(eye);
    const bool hasSecondSeat = std::abs(eye.x() - other.x()) > 2 * kLeastFromMiddle && HasSecondYoke(yokes, places);
    if (hasSecondSeat && !HasHotspotAt(existing, other))
        writer.Hotspot("At the other side, because there is a second yoke.", "Copilot's Seat", other);
}

/// Where the blocks come from.
struct Source {
    const LoadedAircraft& aircraft;
    const AnnotationStore& annotations;
    const AcfPoints& points;
};

/// Writes what an existing file lacks. Its places count from `origin`.
void WriteMissing(const VrConfigFile& existing, const Source& source, const Vector3& origin, Writer& writer) {
    const VrConfigPlaces places(*source.aircraft.opened.cockpit, origin);
    const Controls controls = FindControls(*source.aircraft.built.sceneGraph, source.annotations);
    if (source.points.eye)
        WriteHotspots(existing, places, places.OfAircraft(*source.points.eye), controls.yokes, writer);
    std::set<std::string> known;
    for (const CockpitModel::VrConfigBlock& block : existing.blocks)
        known.insert(VrConfigKey(block));
    for (const auto& [key, parts, isYoke] : controls.groups) {
        if (known.contains(key))
            continue;
        const VrConfigLines lines = isYoke ? YokeLines(parts, places) : KnobLines(parts);
        if (!lines.directives.empty())
            writer.Manip(*parts.front(), ControlText(*parts.front(), source.annotations), lines);
    }
}

} // namespace

VrConfigText MakeVrConfig(const LoadedAircraft& aircraft, const AnnotationStore& annotations, const AcfPoints& points) {
    Writer writer(kHeader);
    WriteMissing({}, {aircraft, annotations, points}, Vector3::Zero(), writer);
    return writer.Finish();
}

VrConfigText MergeVrConfig(const LoadedAircraft& aircraft, const AnnotationStore& annotations, const AcfPoints& points,
                           std::string_view text) {
    const VrConfigFile existing = CockpitModel::ParseVrConfig(text);
    // Lines that are added to an open block would become part of it.
    if (const std::string fault = VrConfigStructureFault(existing); !fault.empty())
        throw std::runtime_error(fault);
    Writer writer(text.ends_with('\n') ? "" : "\n");
    const Vector3 origin = existing.refPointLine != 0 ? Vector3(Vector3::Zero()) : points.centreOfGravity;
    WriteMissing(existing, {aircraft, annotations, points}, origin, writer);
    VrConfigText merged = writer.Finish();
    if (existing.LineEnd() == "\r\n")
        boost::replace_all(merged.text, "\n", "\r\n");
    merged.text = merged.hotspots + merged.blocks == 0 ? std::string(text) : std::string(text) + merged.text;
    return merged;
}

} // namespace Annotator
