#include "Annotator/AircraftLoading.h"
#include "Annotator/Explanation.h"
#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "CockpitModel/Annotations/AnnotationStore.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace Batch {

namespace {

using CockpitModel::NodePart;
using CockpitModel::PartAddress;

struct ExplainOptions {
    SingleAircraftOptions aircraft;
    std::string part;
};

PartAddress ReadAddress(const std::string& text) {
    const std::optional<PartAddress> address = CockpitModel::ParsePartAddress(text);
    if (!address || address->node < 0 || address->part < 0)
        throw CommandError(kWrongUsage, "'" + text + "' is not a part; write NODE,PART, for example 12,0");
    return *address;
}

/// Empty if the annotations do not set or expect a type.
std::string AnnotationText(const std::optional<CockpitModel::AnnotationRecord>& record) {
    std::string text;
    if (record && record->InteractionType)
        text += std::string("  annotated:   ") + TouchInteractionTypeToText(*record->InteractionType) + " instead\n";
    if (record && record->InteractionTypeTest)
        text += std::string("  expected:    ") + TouchInteractionTypeToText(*record->InteractionTypeTest) + "\n";
    return text;
}

/// Empty if the cockpit has no such part.
std::string ExplainOne(const Sim::AircraftInfo& info, const ExplainOptions& options) {
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, options.aircraft.load);
    const CockpitModel::SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    const NodePart* const part = sceneGraph.FindPart(ReadAddress(options.part));
    if (!part)
        return {};
    CockpitModel::AnnotationStore store(sceneGraph);
    store.Read(CockpitModel::AnnotationFile(info));
    return Annotator::ExplanationText(sceneGraph, *part) + AnnotationText(store.Get(*part));
}

ExitCode Explain(const ExplainOptions& options, Session& session) {
    ReadAddress(options.part);
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    const std::string text = RunJob(info, options.aircraft.limits.timeout);
    if (text.empty())
        throw CommandError(kWrongUsage, NameOf(info) + " has no part " + options.part +
                                            "; run 'inspect' to list all parts, 'manips' to list clickable parts");
    Print(NameOf(info) + ", " + text);
    return kDone;
}

} // namespace

Action PrepareExplain(CLI::App& app) {
    auto options = std::make_shared<ExplainOptions>();
    AddAircraftOptions(app, options->aircraft);
    app.add_option("PART", options->part, "Part as NODE,PART, for example 12,0")->type_name("")->required();
    return {[options](Session& session) { return Explain(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) { return ExplainOne(info, *options); }};
}

} // namespace Batch
