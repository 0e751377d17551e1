#include "Annotator/Lint/VrConfigCheck.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/Lint/LintChecks.h"
#include "Annotator/Lint/VrConfigBlockChecks.h"
#include "CockpitModel/XPlane/AcfPoints.h"
#include "CockpitModel/XPlane/AttachedObjects.h"
#include "CockpitModel/XPlane/VrConfigFile.h"
#include "CockpitModel/XPlane/XPAircraftCockpit.h"
#include "Utils/EditDistance.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cstdio>
#include <limits>
#include <utility>

namespace Annotator {

namespace {

using enum LintSeverity;
using boost::filesystem::path;
using CockpitModel::AcfPoints;
using CockpitModel::VrConfigFile;
using CockpitModel::VrConfigHotspot;
using CockpitModel::VrConfigRule;
using Utils::Vector3;

/// In bytes, a thousand times the size of real files.
constexpr std::uintmax_t kLargestVrConfig = std::uintmax_t{16} << 20;
/// In metres: how near the pilot's eye a hotspot is that puts the user on the pilot's seat.
constexpr float kSeatDistance = 0.5f;
constexpr std::size_t kMostErrors = 2; ///< typing errors up to which a directive is suggested

// -- the text ---------------------------------------------------------------------------------------------------------

struct RuleText {
    const char* check;
    const char* fix;
};

RuleText TextOf(VrConfigRule rule) {
    switch (rule) {
    case VrConfigRule::Header:
        return {"vr-header",
                "begin the file with the lines A, 1100 and VRCONFIG, without anything before or between them"};
    case VrConfigRule::Nesting:
        return {"vr-nesting",
                "end each BEGIN with its END before the next BEGIN, and write directives only between them"};
    case VrConfigRule::Values:
        return {"vr-values", "correct the values; numbers have a decimal point"};
    case VrConfigRule::Complete:
        return {"vr-hotspot", "give each hotspot one AABB, PRESET_XYZ, PRESET_PSI, PRESET_THE and PRESET_PHI"};
    }
    return {};
}

void CheckText(const VrConfigFile& file, LintFindings& findings) {
    for (const CockpitModel::VrConfigFault& fault : file.faults) {
        const RuleText text = TextOf(fault.rule);
        findings.Add(Error, text.check, fault.line, "found " + fault.found + ", needed " + fault.needed, text.fix);
    }
    if (file.moreFaults > 0)
        findings.Add(Error, "more-faults", 0,
                     "there are " + std::to_string(file.moreFaults) + " more faults like these",
                     "check whether this is a VR configuration at all");
}

/// The directive of the format that a word resembles; empty if there is none.
std::string DirectiveLike(const std::string& word) {
    std::string nearest;
    std::size_t fewest = std::min(kMostErrors, word.size() / 3);
    const std::string lower = Utils::ToLowerAscii(word);
    for (const std::string_view known : CockpitModel::VrConfigKeywords()) {
        const std::size_t errors = Utils::EditDistance(lower, Utils::ToLowerAscii(known), fewest);
        if (errors > fewest || (errors == fewest && !nearest.empty()))
            continue;
        fewest = errors;
        nearest = known;
    }
    return nearest;
}

void CheckUnknown(const VrConfigFile& file, LintFindings& findings) {
    for (const auto& [word, line] : file.unknown) {
        const std::string like = DirectiveLike(word);
        findings.Add(Note, "unknown-directive", line,
                     "'" + Shortened(word) + "' is not known to this version" +
                         (like.empty() ? "" : "; did you mean " + like + "?"),
                     "none needed if X-Plane knows it; the line is kept as it is");
    }
    if (file.moreUnknown > 0)
        findings.Add(Note, "unknown-directive", 0,
                     std::to_string(file.moreUnknown) + " more lines are not known to this version",
                     "check whether this is a VR configuration at all");
}

// -- hotspots ---------------------------------------------------------------------------------------------------------

std::string NumbersText(const Vector3& point) {
    char text[64];
    std::snprintf(text, sizeof text, "%.2f %.2f %.2f", static_cast<double>(point.x()), static_cast<double>(point.y()),
                  static_cast<double>(point.z()));
    return text;
}

std::string MetresText(float metres) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f m", static_cast<double>(metres));
    return text;
}

std::string HotspotName(const VrConfigHotspot& hotspot) {
    return "the hotspot '" + Shortened(hotspot.name) + "'";
}

void CheckBox(const VrConfigHotspot& hotspot, LintFindings& findings) {
    if (!hotspot.box || !hotspot.head)
        return;
    std::string axes;
    for (std::size_t i = 0; i < 3; ++i)
        if ((*hotspot.head)[i] < (*hotspot.box)[i] || (*hotspot.head)[i] > (*hotspot.box)[i + 3])
            axes += (axes.empty() ? "" : ", ") + std::string(1, static_cast<char>('x' + i));
    if (!axes.empty())
        findings.Add(Warning, "hotspot-box", hotspot.headLine,
                     "PRESET_XYZ of " + HotspotName(hotspot) + " lies outside its AABB in " + axes,
                     "AABB needs the least x, y and z, then the greatest, with PRESET_XYZ between them");
}

Vector3 HeadOf(const VrConfigHotspot& hotspot) {
    return {(*hotspot.head)[0], (*hotspot.head)[1], (*hotspot.head)[2]};
}

/// The hotspot whose head is nearest to a point in the file's coordinates; null if there is none.
const VrConfigHotspot* Nearest(const VrConfigFile& file, const Vector3& point) {
    const VrConfigHotspot* nearest = nullptr;
    float least = std::numeric_limits<float>::infinity();
    for (const VrConfigHotspot& hotspot : file.hotspots) {
        const float distance = hotspot.head ? (HeadOf(hotspot) - point).norm() : least;
        if (distance < least) {
            least = distance;
            nearest = &hotspot;
        }
    }
    return nearest;
}

float DistanceTo(const VrConfigHotspot* hotspot, const Vector3& point) {
    return hotspot ? (HeadOf(*hotspot) - point).norm() : std::numeric_limits<float>::infinity();
}

/// Hotspots that would fit if they counted from the other origin are a common mistake.
void WarnOfOrigin(const VrConfigFile& file, const std::string& message, std::uint32_t line, LintFindings& findings) {
    if (file.refPointLine == 0)
        findings.Add(Warning, "pilot-hotspot", line,
                     message + "; it counts from the centre of gravity, but fits the reference point",
                     "add the line REF_POINT_ACF before the first hotspot");
    else
        findings.Add(Warning, "pilot-hotspot", line,
                     message +
                         "; with REF_POINT_ACF it counts from the reference point, but fits the centre of gravity",
                     "remove the line REF_POINT_ACF");
}

void CheckPilot(const VrConfigFile& file, const AcfPoints& acf, LintFindings& findings) {
    if (!acf.eye)
        return;
    Vector3 eye = *acf.eye, byOtherOrigin = *acf.eye - acf.centreOfGravity;
    if (file.refPointLine == 0)
        std::swap(eye, byOtherOrigin);
    const VrConfigHotspot* const nearest = Nearest(file, eye);
    if (DistanceTo(nearest, eye) <= kSeatDistance)
        return;
    std::string message =
        "no hotspot is within " + MetresText(kSeatDistance) + " of the pilot's eye at " + NumbersText(eye);
    const VrConfigHotspot* const other = Nearest(file, byOtherOrigin);
    if (DistanceTo(other, byOtherOrigin) <= kSeatDistance) {
        WarnOfOrigin(file, message + "; the nearest would be " + HotspotName(*other), other->headLine, findings);
        return;
    }
    if (nearest)
        message += "; the nearest is " + HotspotName(*nearest) + ", " + MetresText(DistanceTo(nearest, eye)) + " away";
    findings.Add(Warning, "pilot-hotspot", nearest ? nearest->headLine : 0, message,
                 "add a hotspot with PRESET_XYZ " + NumbersText(eye) + ", or correct the nearest one");
}

// -- the aircraft -----------------------------------------------------------------------------------------------------

/// Whether an object that the .acf attaches could not be read: a block may stand for something in it.
bool LacksObjects(const path& acf, std::string_view acfText, const LoadedAircraft& aircraft) {
    const auto& cockpit = dynamic_cast<const CockpitModel::XPAircraftCockpit&>(*aircraft.opened.cockpit);
    const std::size_t own = cockpit.cockpitObjPath.empty() ? 0 : 1;
    return aircraft.built.model->objects.size() < cockpit.attached.objects.size() + own ||
           std::ranges::any_of(CockpitModel::ReadAttachedEntries(acfText), [&](const auto& entry) {
               return !CockpitModel::FindAttachedFile(acf, entry.file).problem.empty();
           });
}

LoadedAircraft LoadFull(const Sim::AircraftInfo& info) {
    return LoadAircraft(info, {.reading = CockpitModel::Reading::Full});
}

void CheckAgainstCockpit(const VrConfigFile& file, const Sim::AircraftInfo& info, std::string_view acfText,
                         LintFindings& findings, std::vector<LintFinding>& all) {
    try {
        const LoadedAircraft aircraft = LoadFull(info);
        const VrConfigCockpit cockpit(info, *aircraft.built.sceneGraph, LacksObjects(info.acfPath, acfText, aircraft));
        CheckBlocks(file, cockpit, findings);
        CheckMissingBlocks(file, cockpit, all);
    } catch (const std::exception& error) {
        findings.Add(Error, "not-loaded", 0, "the cockpit cannot be loaded: " + Utils::Describe(error),
                     "fix what the message names; 'lint --full' shows more");
    }
}

void CheckFile(const path& file, const Sim::AircraftInfo& info, std::vector<LintFinding>& all) {
    LintFindings findings(file.string(), all);
    if (!Utils::OpenFile(file).is_open() || boost::filesystem::file_size(file) > kLargestVrConfig) {
        findings.Add(Error, "vr-unreadable", 0, "the file cannot be read, or has more than 16 MiB",
                     "replace it by a VR configuration that can be read");
        return;
    }
    const VrConfigFile config = CockpitModel::ParseVrConfig(Utils::ReadFile(file));
    const std::string acf = Utils::ReadFile(info.acfPath);
    CheckText(config, findings);
    CheckUnknown(config, findings);
    for (const VrConfigHotspot& hotspot : config.hotspots)
        CheckBox(hotspot, findings);
    CheckPilot(config, CockpitModel::ReadAcfPoints(acf), findings);
    CheckAgainstCockpit(config, info, acf, findings, all);
}

/// Without the file there is no seat in VR, and X-Plane guesses how controls move.
void NoteNoFile(const Sim::AircraftInfo& info, std::vector<LintFinding>& all) {
    std::string more;
    try {
        const LoadedAircraft aircraft = LoadFull(info);
        if (const std::size_t count = CountWanted(VrConfigCockpit(info, *aircraft.built.sceneGraph, false)); count > 0)
            more = "; " + Utils::Counted(count, "control") + " would work better in VR with a block";
    } catch (const std::exception&) { // 'lint --full' tells why
    }
    LintFindings(CockpitModel::VrConfigPath(info.acfPath).string(), all)
        .Add(Note, "no-vrconfig", 0, "the aircraft has no VR configuration" + more,
             "run 'vorelle-batch vrconfig write' to make one");
}

} // namespace

std::vector<LintFinding> CheckVrConfig(const Sim::AircraftInfo& info) {
    std::vector<LintFinding> findings;
    const path expected = CockpitModel::VrConfigPath(info.acfPath);
    const path file = Utils::OnDiskCase(Utils::FindIgnoringCase(expected));
    if (file.empty()) {
        NoteNoFile(info, findings);
        return findings;
    }
    CheckFile(file, info, findings);
    if (file != expected)
        LintFindings(file.string(), findings)
            .Add(Warning, "vrconfig-case", 0, "the name of the file differs in case from " + expected.string(),
                 "rename the file: Linux file names are case-sensitive");
    SortFindings(findings);
    return findings;
}

} // namespace Annotator
