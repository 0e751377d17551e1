#include "Annotator/ExpectationCheck.h"

#include "Annotator/FailureTexts.h"
#include "Annotator/VrConfigLines.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "CockpitModel/XPlane/VrConfigParts.h"
#include "Utils/Files.h"
#include "Utils/Paths.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <map>

namespace Annotator {

namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::AnnotationStore;
using CockpitModel::NodePart;
using CockpitModel::SceneGraph;
using CockpitModel::TouchInteractionType;
using CockpitModel::VrConfigFile;

PartResult RunTest(const AnnotationRecord& record, const NodePart& part, const AnnotationStore& store) {
    return {.NodeId = record.NodeId,
            .PartId = record.PartId,
            .rectangle = part.Rect() ? part.Rect()->Text : std::string(),
            .expected = *record.InteractionTypeTest,
            .detected = part.InteractionType,
            .passed = store.Evaluate(part).testPassed.value_or(false)};
}

void RunTests(const SceneGraph& sceneGraph, const AnnotationStore& store, AircraftResult& tests) {
    for (const AnnotationRecord& record : store.ListAll()) {
        if (!record.InteractionTypeTest)
            continue;
        const NodePart& part = *sceneGraph.FindPart(record.Address());
        tests.parts.push_back(RunTest(record, part, store));
        tests.covered += part.Rect() != nullptr;
    }
}

std::size_t CountClickable(const SceneGraph& sceneGraph) {
    std::size_t count = 0;
    for (const auto& node : sceneGraph.Nodes())
        count += node->clickableParts.size();
    return count;
}

/// The expectations that the store dropped because the scene has no such part.
std::vector<AnnotationRecord> UnplacedExpectations(const std::string& path, const SceneGraph& sceneGraph) {
    std::vector<AnnotationRecord> records = CockpitModel::ReadAnnotations(path);
    std::erase_if(records, [&](const AnnotationRecord& record) {
        return !record.InteractionTypeTest || sceneGraph.FindPart(record.Address());
    });
    return records;
}

/// An aircraft that cannot be loaded in the plain reading has nothing to compare with.
void AddPlainTypes(const Sim::AircraftInfo& info, AircraftResult& tests) {
    try {
        const LoadedAircraft plain = LoadAircraft(info, {.untextured = true});
        for (PartResult& result : tests.parts)
            if (const NodePart* part = plain.built.sceneGraph->FindPart({result.NodeId, result.PartId});
                part && !result.passed)
                result.plain = part->InteractionType;
    } catch (const std::exception&) {
    }
}

AircraftResult ResultOf(const Sim::AircraftInfo& info, CockpitModel::Reading reading) {
    AircraftResult tests;
    tests.displayName = info.displayName;
    tests.acfPath = info.acfPath;
    tests.reading = reading;
    return tests;
}

AircraftResult CheckAnnotated(const Sim::AircraftInfo& info, const CockpitModel::AnnotationSource& annotations,
                              const LoadOptions& options, const LoadedUse& onFailed) {
    const LoadedAircraft aircraft = LoadAircraft(info, options);
    const SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    AnnotationStore store(sceneGraph);
    store.Read(annotations.path);

    AircraftResult tests = ResultOf(info, options.reading);
    tests.plainExpectations = annotations.ofPlain;
    tests.hasCockpitObject = aircraft.opened.cockpit->IsValid();
    RunTests(sceneGraph, store, tests);
    tests.unplaced = UnplacedExpectations(annotations.path, sceneGraph);
    tests.clickable = CountClickable(sceneGraph);
    if (tests.reading == CockpitModel::Reading::Full && tests.Failed() > 0)
        AddPlainTypes(info, tests);
    if (onFailed && tests.Failed() > 0)
        onFailed(aircraft, store, tests);
    return tests;
}

/// A yoke's block does not tell which of the yokes is the primary one.
bool IsOfKind(TouchInteractionType kind, TouchInteractionType type) {
    return kind == type || (IsYoke(kind) && IsYoke(type));
}

/// Compares each part with the first block for its manipulator.
void RunBlocks(const VrConfigFile& file, const SceneGraph& sceneGraph, AircraftResult& tests) {
    std::map<std::string, const CockpitModel::VrConfigBlock*> blocks;
    for (const CockpitModel::VrConfigBlock& block : file.blocks)
        blocks.try_emplace(VrConfigKey(block), &block);
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts) {
            const auto block = part->manipulator ? blocks.find(VrConfigKey(*part->manipulator)) : blocks.end();
            if (block == blocks.end())
                continue;
            const auto kind = VrConfigKind(*block->second, *part->manipulator);
            if (!kind)
                continue;
            const TouchInteractionType detected = part->InteractionType;
            const bool passed = IsOfKind(*kind, detected);
            tests.parts.push_back({.NodeId = node->index,
                                   .PartId = part->id,
                                   .rectangle = part->Rect() ? part->Rect()->Text : std::string(),
                                   .expected = passed ? detected : *kind,
                                   .detected = detected,
                                   .passed = passed,
                                   .blockLine = block->second->firstLine});
            tests.covered += part->Rect() != nullptr;
        }
}

AircraftResult CheckBlocks(const Sim::AircraftInfo& info, const LoadedUse& onFailed) {
    const boost::filesystem::path path = Utils::FindIgnoringCase(CockpitModel::VrConfigPath(info.acfPath));
    AircraftResult tests = ResultOf(info, CockpitModel::Reading::Full);
    tests.source = ExpectationSource::VrConfig;
    tests.hasVrConfig = !path.empty();
    if (!tests.hasVrConfig)
        return tests;
    const VrConfigFile file = CockpitModel::ParseVrConfig(Utils::ReadFile(path));
    tests.vrConfigFault = VrConfigStructureFault(file);
    const LoadedAircraft aircraft = LoadAircraft(info, {.reading = tests.reading});
    RunBlocks(file, *aircraft.built.sceneGraph, tests);
    tests.clickable = CountClickable(*aircraft.built.sceneGraph);
    if (tests.Failed() == 0)
        return tests;
    AddPlainTypes(info, tests);
    if (onFailed)
        onFailed(aircraft, AnnotationStore(*aircraft.built.sceneGraph), tests);
    return tests;
}

} // namespace

std::size_t AircraftResult::Passed() const {
    return static_cast<std::size_t>(std::ranges::count(parts, true, &PartResult::passed));
}

std::size_t AircraftResult::FailedAsPlain() const {
    return static_cast<std::size_t>(std::ranges::count(parts, true, &PartResult::FailedAsPlain));
}

AircraftCheckError::AircraftCheckError(const Sim::AircraftInfo& info, const std::string& why)
    : std::runtime_error(info.displayName + " (" + info.acfPath + "): " + why) {}

std::optional<AircraftResult> CheckAircraft(const Sim::AircraftInfo& info, const LoadOptions& options,
                                            const LoadedUse& onFailed) {
    try {
        const CockpitModel::AnnotationSource annotations = CockpitModel::FindAnnotations(info, options.reading);
        if (!boost::filesystem::exists(annotations.path))
            return std::nullopt;
        return CheckAnnotated(info, annotations, options, onFailed);
    } catch (const std::exception& error) {
        std::throw_with_nested(AircraftCheckError(info, ReasonText(error)));
    }
}

AircraftResult TestVrConfig(const Sim::AircraftInfo& info, const LoadedUse& onFailed) {
    try {
        return CheckBlocks(info, onFailed);
    } catch (const std::exception& error) {
        std::throw_with_nested(AircraftCheckError(info, ReasonText(error)));
    }
}

std::vector<AircraftResult> CheckAllAircraft(Sim::AircraftListLoader& loader, CockpitModel::Reading reading) {
    std::vector<AircraftResult> results;
    for (const auto& info : loader.LoadAircraftList()) {
        CockpitModel::AnnotationPath(*info, reading); // creates the folder, as every use in the window does
        if (std::optional<AircraftResult> tests = CheckAircraft(*info, {.reading = reading}))
            results.push_back(std::move(*tests));
    }
    return results;
}

} // namespace Annotator
