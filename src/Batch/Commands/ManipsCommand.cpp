#include "Annotator/AircraftLoading.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/ForEachAircraft.h"
#include "Batch/Reports/AlignedTable.h"
#include "Batch/Reports/CsvLine.h"
#include "Batch/Reports/Json.h"
#include "CockpitModel/Annotations/AnnotationStore.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

namespace Batch {

namespace {

using CockpitModel::MouseRect;
using CockpitModel::NodePart;

struct ManipulatorOptions {
    bool csv = false, json = false;
    AircraftOptions aircraft;
};

constexpr std::array kColumns{"node", "part", "line",     "manipulator", "from",
                              "to",   "type", "override", "expected",    "dataref"};

/// The values of a line, by column. The dataref is last because only its length is unlimited.
using Row = std::array<Json, kColumns.size()>;

struct Manipulator {
    const char* kind = "other";
    Json from, to, dataref;
};

Manipulator ManipulatorOf(const MouseRect& rect) {
    if (const auto* toggle = dynamic_cast<const CockpitModel::CallbackXPToggle*>(rect.EventCallback.get()))
        return {"toggle", toggle->ValA, toggle->ValB, JsonText(toggle->Var)};
    if (const auto* drag = dynamic_cast<const CockpitModel::CallbackXPVariable*>(rect.VariableCallback.get()))
        return {"drag", drag->Min, drag->Max, JsonText(drag->Var)};
    return {};
}

Json TypeOrNull(const std::optional<CockpitModel::TouchInteractionType>& type) {
    return type ? Json(TouchInteractionTypeToText(*type)) : Json();
}

Row RowOf(const NodePart& part, const CockpitModel::AnnotationStore& store) {
    const Manipulator manipulator = ManipulatorOf(*part.Rect());
    const CockpitModel::AnnotationRecord record = store.Get(part).value_or(CockpitModel::AnnotationRecord());
    return {part.node->index,
            part.id,
            part.block.ManipulatorLine,
            manipulator.kind,
            manipulator.from,
            manipulator.to,
            TouchInteractionTypeToText(part.InteractionType),
            TypeOrNull(record.InteractionType),
            TypeOrNull(record.InteractionTypeTest),
            manipulator.dataref};
}

std::vector<Row> RowsOf(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, load);
    const CockpitModel::SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    CockpitModel::AnnotationStore store(sceneGraph);
    store.Read(CockpitModel::AnnotationFile(info));
    std::vector<Row> rows;
    for (const auto& node : sceneGraph.Nodes())
        for (const NodePart* part : node->clickableParts)
            rows.push_back(RowOf(*part, store));
    return rows;
}

/// A value as a table cell; empty for null.
std::string Plain(const Json& value) {
    if (value.is_null())
        return {};
    std::string text = value.is_string() ? value.get<std::string>() : value.dump();
    if (value.is_number_float() && text.ends_with(".0"))
        text.resize(text.size() - 2);
    return text;
}

std::string CsvLines(const Sim::AircraftInfo& info, const std::vector<Row>& rows) {
    std::string text;
    for (const Row& row : rows) {
        std::vector<std::string> fields{Utils::ToValidUtf8(info.acfPath)};
        std::transform(row.begin(), row.end(), std::back_inserter(fields), Plain);
        text += CsvLine(fields);
    }
    return text;
}

std::string JsonLines(const Sim::AircraftInfo& info, const std::vector<Row>& rows) {
    std::string text;
    for (const Row& row : rows) {
        Json object{{"acfPath", JsonText(info.acfPath)}};
        for (std::size_t i = 0; i < row.size(); ++i)
            object[kColumns[i]] = row[i];
        text += (text.empty() ? "  " : ",\n  ") + object.dump();
    }
    return text;
}

std::string Table(const Sim::AircraftInfo& info, const std::vector<Row>& rows) {
    std::vector<std::vector<std::string>> lines(rows.size() + 1, std::vector<std::string>(kColumns.size()));
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        lines.front()[i] = kColumns[i];
        for (std::size_t row = 0; row < rows.size(); ++row)
            lines[row + 1][i] = rows[row][i].is_null() ? "-" : Shown(Plain(rows[row][i]));
    }
    return NameOf(info) + ": " + Counted(rows.size(), "part") + " that can be clicked\n" +
           (rows.empty() ? std::string() : AlignedTable(lines, "  "));
}

std::string FormOf(const ManipulatorOptions& options, const Sim::AircraftInfo& info) {
    const std::vector<Row> rows = RowsOf(info, options.aircraft.load);
    return options.csv ? CsvLines(info, rows) : options.json ? JsonLines(info, rows) : Table(info, rows);
}

std::string CsvHeading() {
    std::string heading = "acfPath";
    for (const char* column : kColumns)
        heading += std::string(",") + column;
    return heading + '\n';
}

ExitCode Manips(const ManipulatorOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    const char* separator = options.json ? "[\n" : "";
    std::cout << (options.csv ? CsvHeading() : "");
    const auto take = [&](const Sim::AircraftInfo&, const std::string& output) {
        if (output.empty())
            return;
        (options.json ? PrintJson : Print)(separator + output);
        separator = options.json ? ",\n" : options.csv ? "" : "\n";
    };
    const std::size_t failed = ForEachAircraft(aircraft, session.console, {.take = take});
    if (options.json)
        std::cout << (*separator == '[' ? "[]\n" : "\n]\n");
    return failed > 0 ? kAircraftFailed : kDone;
}

} // namespace

Action PrepareManips(CLI::App& app) {
    auto options = std::make_shared<ManipulatorOptions>();
    CLI::Option* const csv = app.add_flag("--csv", options->csv, "Print a table for spreadsheets");
    app.add_flag("--json", options->json, "Print a list of JSON objects")->excludes(csv);
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Manips(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) { return FormOf(*options, info); }};
}

} // namespace Batch
