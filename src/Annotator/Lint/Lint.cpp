#include "Annotator/Lint/Lint.h"

#include "Annotator/AircraftLoading.h"
#include "Annotator/Lint/LintAnnotations.h"
#include "Annotator/Lint/LintChecks.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "CockpitModel/PartTransformCalculator.h"
#include "CockpitModel/Touch/InteractionDetector.h"
#include "CockpitModel/XPlane/XPAircraftCockpit.h"
#include "CockpitModel/XPlane/XPObjData.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"
#include "Utils/Text.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <cstdio>
#include <set>
#include <tuple>

namespace Annotator {

namespace {

using enum LintSeverity;
using boost::filesystem::path;
using CockpitModel::TouchInteractionType;

constexpr std::size_t kMostOtherYokes = 4;

/// The name that a file bears on the disk, also where the system finds it by another spelling; empty when there is
/// none.
path CockpitFileOnDisk(const path& file) {
    return Utils::OnDiskCase(Utils::FindIgnoringCase(file));
}

/// X-Plane takes a texture of either kind for the other.
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
                         "write it as the file is named: Linux tells them apart");
        else if (const std::string other = WithOtherExtension(file); !other.empty())
            findings.Add(Note, "texture-missing", texture.line,
                         "there is no " + file.string() + ", but " + other + ", which X-Plane takes instead",
                         "name the file that is there");
        else
            findings.Add(Warning, "texture-missing", texture.line, "there is no " + file.string(),
                         "add the file, or name one that is there");
    }
}

/// Where an aircraft has no 3D panel, X-Plane shows its 2D panel under ATTR_cockpit; this program does not.
void CheckPanel(const LintOutline& outline, const path& folder, LintFindings& findings) {
    const auto first = std::ranges::find(outline.draws, true, &LintDraw::panel);
    if (first == outline.draws.end() || !Utils::FindIgnoringCase(folder / CockpitModel::kPanelTexture).empty())
        return;
    const auto count = static_cast<std::size_t>(std::ranges::count(outline.draws, true, &LintDraw::panel));
    const std::string wrong = "there is no " + (folder / CockpitModel::kPanelTexture).string() + ", which " +
                              Utils::Counted(count, "part under ATTR_cockpit shows", "parts under ATTR_cockpit show");
    if (const path flat = Utils::FindIgnoringCase(folder / "cockpit/-PANELS-/Panel.png"); !flat.empty())
        findings.Add(Note, "panel-missing", first->line, wrong,
                     "nothing for X-Plane, which takes " + flat.string() + " instead; pictures here stay without it");
    else
        findings.Add(Warning, "panel-missing", first->line, wrong,
                     "add the picture of the panel, or give these parts a TEXTURE by ATTR_no_cockpit");
}

void CheckAcf(const path& acf, std::vector<LintFinding>& all) {
    constexpr std::size_t looked = 4096;
    std::string start(looked, ' ');
    Utils::OpenFile(acf).read(start.data(), looked);
    if (start.find('\0') != start.npos)
        LintFindings(acf.string(), all)
            .Add(Warning, "acf-binary", 0, "it is binary, so that the aircraft's name and pilot's eye are not read",
                 "open the aircraft in Plane Maker of X-Plane 10 or 11 and save it, which makes it text");
}

std::string ScoreText(const CockpitModel::NodePart& part) {
    char score[32];
    std::snprintf(score, sizeof score, "%.4g",
                  static_cast<double>(CockpitModel::InteractionDetector().YokeScore(part)));
    return "part " + std::to_string(part.node->index) + "," + std::to_string(part.id) + " scores " + score +
           (part.InteractionType == TouchInteractionType::YokePrimary ? " (chosen)" : "");
}

/// The datarefs of animations that look like a yoke's and are not taken for one.
std::string OtherYokes(const LintOutline& outline) {
    std::string text;
    std::set<std::string> seen;
    for (const LintStep& step : outline.steps) {
        const std::string name = Utils::ToLowerAscii(step.dataref);
        const bool like = name.find("yoke") != name.npos || name.find("stick") != name.npos;
        const bool known = CockpitModel::IsYokeRollName(step.dataref) || CockpitModel::IsYokePitchName(step.dataref);
        if (like && !known && seen.size() < kMostOtherYokes && seen.insert(name).second)
            text += (text.empty() ? " (" : ", ") + step.dataref + " in line " + std::to_string(step.line);
    }
    return text.empty() ? text : text + (seen.size() == 1 ? " does not count)" : " do not count)");
}

void CheckYokes(const CockpitModel::SceneGraph& sceneGraph, const LintOutline& outline, LintFindings& findings) {
    std::vector<const CockpitModel::NodePart*> candidates;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (IsYoke(part->InteractionType))
                candidates.push_back(part.get());
    if (candidates.empty()) {
        findings.Add(Note, "no-yoke", 0,
                     "no part without a manipulator moves with both axes of a yoke" + OtherYokes(outline),
                     "animate it by sim/cockpit2/controls/yoke_roll_ratio and .../yoke_pitch_ratio with ANIM_rotate or "
                     "ANIM_trans lines");
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
                 "nothing, if the chosen one belongs to the pilot's yoke; the widest sweep farthest left wins");
}

void CheckAnnotations(const Sim::AircraftInfo& info, const CockpitModel::SceneGraph& sceneGraph,
                      std::vector<LintFinding>& findings) {
    const std::string file = CockpitModel::AnnotationFile(info);
    LintFindings target(file, findings);
    if (boost::filesystem::exists(file))
        LintAnnotations(Utils::ReadFile(file), sceneGraph, target);
}

/// Yokes and what annotations name show only in the built cockpit. What keeps it from being built is among the findings
/// of its text, except for limits of the model.
void CheckBuiltCockpit(const Sim::AircraftInfo& info, const LintOutline& outline, std::vector<LintFinding>& all,
                       LintFindings& findings) {
    if (outline.doubledReturns.count > 0)
        return; // what is built then has little to do with the file
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    try {
        const OpenedAircraft opened = OpenAircraft(info, repository);
        const BuiltAircraft built = BuildAircraft(opened, {.untextured = true});
        CheckYokes(*built.sceneGraph, outline, findings);
        CheckAnnotations(info, *built.sceneGraph, all);
    } catch (const std::exception& error) {
        if (std::ranges::find(all, Error, &LintFinding::severity) == all.end())
            findings.Add(Error, "not-loaded", 0, Utils::Describe(error), "mend what it names");
    }
}

/// The worst first, each kind of severity by file and line; the cockpit object comes ahead of the annotations.
void Sort(std::vector<LintFinding>& findings) {
    std::ranges::stable_sort(findings, [](const LintFinding& a, const LintFinding& b) {
        return std::tie(b.severity, a.file, a.line) < std::tie(a.severity, b.file, b.line);
    });
}

void RunChecks(const LintOutline& outline, const std::string& file, std::vector<LintFinding>& findings) {
    LintFindings target(file, findings);
    for (const LintCheck check : LintChecks())
        check(outline, target);
}

} // namespace

const char* LintSeverityText(LintSeverity severity) {
    return severity == Error ? "error" : severity == Warning ? "warning" : "note";
}

std::vector<LintFinding> LintObject(const std::string& file, std::string_view text) {
    std::vector<LintFinding> findings;
    RunChecks(ReadLintOutline(text), file, findings);
    Sort(findings);
    return findings;
}

std::vector<LintFinding> LintAircraft(const Sim::AircraftInfo& info) {
    const path acf = info.acfPath;
    const path expected = CockpitModel::CockpitObjectPath(acf);
    const path object = CockpitFileOnDisk(expected);
    if (object.empty())
        throw std::runtime_error("there is no cockpit object " + expected.string());
    const LintOutline outline = ReadLintOutline(Utils::ReadFile(object));
    std::vector<LintFinding> findings;
    RunChecks(outline, object.string(), findings);
    LintFindings target(object.string(), findings);
    if (object != expected)
        target.Add(Warning, "object-case", 0, "the cockpit object differs in case from " + expected.string(),
                   "rename it: Linux tells them apart");
    CheckAcf(acf, findings);
    CheckTextureFiles(outline, acf.parent_path(), target);
    CheckPanel(outline, acf.parent_path(), target);
    CheckBuiltCockpit(info, outline, findings, target);
    Sort(findings);
    return findings;
}

} // namespace Annotator
