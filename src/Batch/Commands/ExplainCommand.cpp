#include "Annotator/AircraftLoading.h"
#include "Annotator/Explanation.h"
#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "CockpitModel/Annotations/AnnotationStore.h"
#include "Utils/RangeCheck.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
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

/// What the plain reading says of a part of the full one.
std::string PlainText(const Sim::AircraftInfo& info, PartAddress address) {
    const std::string heading = "  plain reading: ";
    try {
        CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
        const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository);
        if (!opened.cockpit->IsValid())
            return heading + Annotator::PlainReadingText(nullptr);
        const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, {.untextured = true});
        return heading + Annotator::PlainReadingText(built.sceneGraph->FindPart(address));
    } catch (const std::exception& error) {
        return heading + "cannot be loaded: " + Utils::Describe(error) + "\n";
    }
}

/// Empty if the cockpit has no such part.
JobOutput ExplainOne(const Sim::AircraftInfo& info, const ExplainOptions& options) {
    const Annotator::LoadOptions& load = options.aircraft.load;
    const PartAddress address = ReadAddress(options.part);
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, load);
    const CockpitModel::SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    const NodePart* const part = sceneGraph.FindPart(address);
    if (!part)
        return std::string();
    CockpitModel::AnnotationStore store(sceneGraph);
    store.Read(CockpitModel::FindAnnotations(info, load.reading).path);
    std::string text = Annotator::ExplanationText(sceneGraph, *part);
    if (load.reading == CockpitModel::Reading::Full)
        text += PlainText(info, address);
    return {text + AnnotationText(store.Get(*part)), aircraft.built.model->remarks};
}

ExitCode Explain(const ExplainOptions& options, Session& session) {
    ReadAddress(options.part);
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    const std::string text = RunJob(info, session.console, options.aircraft.limits.timeout);
    if (text.empty())
        throw CommandError(kWrongUsage, NameOf(info) + " has no part " + options.part +
                                            "; run 'inspect' to list all parts, 'manips' to list clickable parts");
    Print(NameOf(info) + ", " + text);
    return kDone;
}

} // namespace

Action PrepareExplain(CLI::App& app) {
    auto options = std::make_shared<ExplainOptions>();
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft);
    app.add_option("PART", options->part, "Part as NODE,PART, for example 12,0")->type_name("")->required();
    return {[options](Session& session) { return Explain(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) { return ExplainOne(info, *options); }};
}

} // namespace Batch
