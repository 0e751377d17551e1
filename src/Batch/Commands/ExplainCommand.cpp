#include "Annotator/AircraftLoading.h"
#include "Annotator/Explanation.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "CockpitModel/Annotations/AnnotationStore.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <charconv>
#include <memory>

namespace Batch {

namespace {

using CockpitModel::NodePart;
using CockpitModel::SceneGraph;

struct ExplainOptions {
    std::string aircraft, part;
    Annotator::LoadOptions load;
};

struct PartPlace {
    std::size_t node = 0, part = 0;
};

bool ReadIndex(std::string_view text, std::size_t& index) {
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, index);
    return error == std::errc() && next == end;
}

PartPlace ReadPlace(const std::string& text) {
    PartPlace place;
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos || !ReadIndex(std::string_view(text).substr(0, comma), place.node) ||
        !ReadIndex(std::string_view(text).substr(comma + 1), place.part))
        throw CommandError(kWrongUsage, "'" + text + "' is not a part; write NODE,PART, for example 12,0");
    return place;
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

/// Null if the cockpit has no such part.
std::string ExplainOne(const Sim::AircraftInfo& info, const PartPlace& place, const Annotator::LoadOptions& load) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository);
    const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, load);
    const auto& nodes = built.sceneGraph->Nodes();
    if (place.node >= nodes.size() || place.part >= nodes[place.node]->parts.size())
        return {};
    const NodePart& part = *nodes[place.node]->parts[place.part];
    CockpitModel::AnnotationStore store(*built.sceneGraph);
    store.Read(CockpitModel::AnnotationFile(info));
    return Annotator::ExplanationText(*built.sceneGraph, part) + AnnotationText(store.Get(part));
}

ExitCode Explain(const ExplainOptions& options, Session& session) {
    const PartPlace place = ReadPlace(options.part);
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft);
    const std::string text =
        RunJob(info, [&](const Sim::AircraftInfo& one) { return ExplainOne(one, place, options.load); });
    if (text.empty())
        throw CommandError(kWrongUsage, NameOf(info) + " has no part " + options.part +
                                            "; run 'inspect' to list all parts, 'manips' to list clickable parts");
    Print(NameOf(info) + ", " + text);
    return kDone;
}

} // namespace

Action PrepareExplain(CLI::App& app) {
    auto options = std::make_shared<ExplainOptions>();
    app.add_option("AIRCRAFT", options->aircraft, "Aircraft")->type_name("")->required();
    app.add_option("PART", options->part, "Part as NODE,PART, for example 12,0")->type_name("")->required();
    AddUntexturedOption(app, options->load);
    return [options](Session& session) { return Explain(*options, session); };
}

} // namespace Batch
