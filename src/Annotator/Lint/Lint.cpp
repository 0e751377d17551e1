#include "Annotator/Lint/Lint.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/Lint/LintAnnotations.h"
#include "Annotator/Lint/LintChecks.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/AttachedObjects.h"
#include "CockpitModel/XPlane/XPAircraftCockpit.h"
#include "CockpitModel/XPlane/XPObjData.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cstdio>
#include <set>
#include <tuple>
#include <utility>

namespace Annotator {

namespace {

using enum LintSeverity;
using boost::filesystem::path;
using CockpitModel::Reading;
using CockpitModel::TouchInteractionType;

constexpr std::size_t kMostOtherYokes = 4;

/// An object file of the aircraft.
struct LintedObject {
    std::string file;
    LintOutline outline;
};

/// The name of a file on disk, even if the system also finds it in other upper or lower case; empty if there is none.
path CockpitFileOnDisk(const path& file) {
    return Utils::OnDiskCase(Utils::FindIgnoringCase(file));
}

/// X-Plane loads a texture of either format in place of the other.
std::string WithOtherExtension(const path& texture) {
    for (const char* extension : {".png", ".dds"})
        if (const path found = Utils::FindIgnoringCase(path(texture).replace_extension(extension)); !found.empty())
            return found.string();
    return {};
}

void CheckTextureFiles(const LintOutline& outline, const path& folder, LintFindings& findings) {
    for (const LintTexture& texture : outline.textures) {
        const path file = folder / texture.path;
        const path found = CockpitFileOnDisk(file);
        if (found == file)
            continue;
        if (!found.empty())
            findings.Add(Warning, "texture-case", texture.line,
                         "TEXTURE " + texture.path + " differs in case from the file " + found.string(),
                         "use the same upper and lower case as the file name: Linux file names are case-sensitive");
        else if (const std::string other = WithOtherExtension(file); !other.empty())
            findings.Add(Note, "texture-missing", texture.line,
                         file.string() + " does not exist; X-Plane uses " + other + " instead",
                         "write the name of the existing file");
        else
            findings.Add(Warning, "texture-missing", texture.line, file.string() + " does not exist",
                         "add the file, or write the name of an existing one");
    }
}

/// If an aircraft has no 3D panel, X-Plane shows its 2D panel under ATTR_cockpit; this program does not.
void CheckPanel(const LintOutline& outline, const path& folder, LintFindings& findings) {
    const auto first = std::ranges::find(outline.draws, true, &LintDraw::panel);
    if (first == outline.draws.end() || !Utils::FindIgnoringCase(folder / CockpitModel::kPanelTexture).empty())
        return;
    const auto count = static_cast<std::size_t>(std::ranges::count(outline.draws, true, &LintDraw::panel));
    const std::string message =
        (folder / CockpitModel::kPanelTexture).string() + " does not exist, but " +
        Utils::Counted(count, "part under ATTR_cockpit shows it", "parts under ATTR_cockpit show it");
    if (const path flat = Utils::FindIgnoringCase(folder / "cockpit/-PANELS-/Panel.png"); !flat.empty())
        findings.Add(Note, "panel-missing", first->line, message,
                     "none needed for X-Plane, which uses " + flat.string() +
                         " instead; this program shows no panel image");
    else
        findings.Add(Warning, "panel-missing", first->line, message,
                     "add the panel image, or use ATTR_no_cockpit so that these parts show TEXTURE");
}

void CheckAcf(const path& acf, std::vector<LintFinding>& all) {
    constexpr std::size_t looked = 4096;
    std::string start(looked, ' ');
    Utils::OpenFile(acf).read(start.data(), looked);
    if (start.find('\0') != start.npos)
        LintFindings(acf.string(), all)
            .Add(Warning, "acf-binary", 0,
                 "the file is binary, so the aircraft's name and the pilot's eye cannot be read",
                 "open the aircraft in Plane Maker of X-Plane 10 or 11 and save it as text");
}

std::string ScoreText(const CockpitModel::NodePart& part) {
    char score[32];
    std::snprintf(score, sizeof score, "%.4g",
                  static_cast<double>(CockpitModel::InteractionDetector().YokeScore(part)));
    return "part " + std::to_string(part.node->index) + "," + std::to_string(part.id) + " scores " + score +
           (part.InteractionType == TouchInteractionType::YokePrimary ? " (chosen)" : "");
}

/// Datarefs of animations that look like a yoke's but are not recognized as one.
std::string OtherYokes(const std::vector<LintedObject>& objects) {
    std::string text;
    std::set<std::string> seen;
    for (const auto& [file, outline] : objects) {
        for (const LintStep& step : outline.steps) {
            const std::string name = Utils::ToLowerAscii(step.dataref);
            const bool like = name.find("yoke") != name.npos || name.find("stick") != name.npos;
            const bool known = CockpitModel::IsYokeRollName(step.dataref, outline.reading) ||
                               CockpitModel::IsYokePitchName(step.dataref, outline.reading);
            if (like && !known && seen.size() < kMostOtherYokes && seen.insert(name).second)
                text += (text.empty() ? " (" : ", ") + step.dataref + " in " +
                        (outline.attached ? file + ", line " : "line ") + std::to_string(step.line);
        }
    }
    return text.empty() ? text : text + (seen.size() == 1 ? " is not recognized)" : " are not recognized)");
}

void CheckYokes(const CockpitModel::SceneGraph& sceneGraph, const std::vector<LintedObject>& objects,
                LintFindings& findings) {
    std::vector<const CockpitModel::NodePart*> candidates;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (IsYoke(part->InteractionType))
                candidates.push_back(part.get());
    if (candidates.empty()) {
        findings.Add(Note, "no-yoke", 0,
                     std::string(sceneGraph.Model().reading == Reading::Full
                                     ? "no part moves with both axes of a yoke or drags them"
                                     : "no part without a manipulator moves with both axes of a yoke") +
                         OtherYokes(objects),
                     "animate the yoke with ANIM_rotate or ANIM_trans lines that use the datarefs "
                     "sim/cockpit2/controls/yoke_roll_ratio and .../yoke_pitch_ratio");
        return;
    }
    if (candidates.size() == 1)
        return;
    std::string scores;
    constexpr std::size_t most = 20;
    for (std::size_t i = 0; i < std::min(candidates.size(), most); ++i)
        scores += (i == 0 ? "" : ", ") + ScoreText(*candidates[i]);
    findings.Add(Note, "several-yokes", 0,
                 std::to_string(candidates.size()) + " parts could be the primary yoke: " + scores +
                     (candidates.size() > most ? ", ..." : ""),
                 "none needed if the chosen part belongs to the pilot's yoke; a wider sweep and a position farther "
                 "left score higher");
}

void CheckAnnotations(const Sim::AircraftInfo& info, const CockpitModel::SceneGraph& sceneGraph,
                      std::vector<LintFinding>& findings) {
    const std::string file = CockpitModel::FindAnnotations(info, sceneGraph.Model().reading).path;
    LintFindings target(file, findings);
    if (boost::filesystem::exists(file))
        LintAnnotations(Utils::ReadFile(file), sceneGraph, target);
}

/// Yokes and annotated parts can only be checked in the built cockpit. If it cannot be built, the findings in its text
/// say why, except for limits of the model.
void CheckBuiltCockpit(const Sim::AircraftInfo& info, Reading reading, const std::vector<LintedObject>& objects,
                       std::vector<LintFinding>& all, LintFindings& findings) {
    if (std::ranges::any_of(objects, [](const auto& object) { return object.outline.doubledReturns.count > 0; }))
        return; // the built cockpit would not match the file
    try {
        const LoadedAircraft aircraft = LoadAircraft(info, {.reading = reading, .untextured = true});
        for (const std::string& remark : aircraft.built.model->remarks)
            LintFindings(info.acfPath, all)
                .Add(Warning, "attached-objects", 0, remark, "correct the object's entry in Plane Maker, or its file");
        CheckYokes(*aircraft.built.sceneGraph, objects, findings);
        CheckAnnotations(info, *aircraft.built.sceneGraph, all);
    } catch (const std::exception& error) {
        if (std::ranges::find(all, Error, &LintFinding::severity) == all.end())
            findings.Add(Error, "not-loaded", 0, Utils::Describe(error), "fix what the message names");
    }
}

void RunChecks(const LintOutline& outline, const std::string& file, std::vector<LintFinding>& findings) {
    LintFindings target(file, findings);
    for (const LintCheck check : LintChecks())
        check(outline, target);
}

/// Adds an object to the list and its findings to the others.
void LintFile(const path& object, LintOutline read, const path& acf, std::vector<LintedObject>& objects,
              std::vector<LintFinding>& findings) {
    objects.push_back({object.string(), std::move(read)});
    const LintOutline& outline = objects.back().outline;
    RunChecks(outline, object.string(), findings);
    LintFindings target(object.string(), findings);
    const path aircraftFolder = acf.parent_path();
    CheckTextureFiles(outline, outline.attached ? object.parent_path() : aircraftFolder, target);
    CheckPanel(outline, aircraftFolder, target);
}

void LintCockpitObject(const path& object, const path& acf, Reading reading, std::vector<LintedObject>& objects,
                       std::vector<LintFinding>& findings) {
    LintFile(object, ReadLintOutline(Utils::ReadFile(object), reading), acf, objects, findings);
    if (const path expected = CockpitModel::CockpitObjectPath(acf); object != expected)
        LintFindings(object.string(), findings)
            .Add(Warning, "object-case", 0, "the name of the cockpit object differs in case from " + expected.string(),
                 "rename the file: Linux file names are case-sensitive");
}

void LintAttachedObjects(const std::set<std::string>& attached, const path& acf, std::vector<LintedObject>& objects,
                         std::vector<LintFinding>& findings) {
    for (const std::string& file : attached) {
        LintOutline outline = ReadLintOutline(Utils::ReadFile(file), Reading::Full);
        outline.attached = true;
        LintFile(file, std::move(outline), acf, objects, findings);
    }
}

void NoteAttachedObjects(const std::set<std::string>& attached, const path& acf, std::vector<LintFinding>& findings) {
    if (!attached.empty())
        LintFindings(acf.string(), findings)
            .Add(Note, "attached-objects", 0,
                 Utils::Counted(attached.size(), "attached object with manipulators is",
                                "attached objects with manipulators are") +
                     " not read, for example " + *attached.begin(),
                 "use --full to check them and the parts that they add");
}

} // namespace

const char* LintSeverityText(LintSeverity severity) {
    return severity == Error ? "error" : severity == Warning ? "warning" : "note";
}

LintSeverity LintSeverityFromText(std::string_view text) {
    return text == LintSeverityText(Error) ? Error : text == LintSeverityText(Warning) ? Warning : Note;
}

void SortFindings(std::vector<LintFinding>& findings) {
    std::ranges::stable_sort(findings, [](const LintFinding& a, const LintFinding& b) {
        return std::tie(b.severity, a.file, a.line) < std::tie(a.severity, b.file, b.line);
    });
}

std::vector<LintFinding> LintObject(const std::string& file, std::string_view text, Reading reading) {
    std::vector<LintFinding> findings;
    RunChecks(ReadLintOutline(text, reading), file, findings);
    SortFindings(findings);
    return findings;
}

std::vector<LintFinding> LintAircraft(const Sim::AircraftInfo& info, Reading reading) {
    const path acf = info.acfPath;
    const path object = CockpitFileOnDisk(CockpitModel::CockpitObjectPath(acf));
    std::set<std::string> attached;
    for (const auto& found : CockpitModel::FindAttachedObjects(acf, Utils::ReadFile(acf), object).objects)
        attached.insert(found.path);
    if (object.empty() && (reading == Reading::Plain || attached.empty()))
        throw std::runtime_error("cannot find the cockpit object " + CockpitModel::CockpitObjectPath(acf).string());
    std::vector<LintedObject> objects;
    std::vector<LintFinding> findings;
    if (!object.empty())
        LintCockpitObject(object, acf, reading, objects, findings);
    if (reading == Reading::Full)
        LintAttachedObjects(attached, acf, objects, findings);
    else
        NoteAttachedObjects(attached, acf, findings);
    CheckAcf(acf, findings);
    LintFindings target(object.empty() ? acf.string() : object.string(), findings);
    CheckBuiltCockpit(info, reading, objects, findings, target);
    SortFindings(findings);
    return findings;
}

} // namespace Annotator
