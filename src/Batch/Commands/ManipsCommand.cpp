#include "Annotator/AircraftLoading.h"
#include "Annotator/PlainManipulator.h"
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
#include <boost/algorithm/string/join.hpp>
#include <iostream>
#include <memory>
#include <tuple>

namespace Batch {

namespace {

using CockpitModel::MouseRect;
using CockpitModel::NodePart;

struct ManipulatorOptions {
    bool csv = false, json = false;
    AircraftOptions aircraft;
};

/// The dataref is last because only its length is unlimited.
constexpr std::array kPlainColumns{"node", "part", "line",     "manipulator", "from",
                                   "to",   "type", "override", "expected",    "dataref"};
/// Further columns of the full reading.
constexpr std::array kFullColumns{"object", "drawLine", "keyword", "names", "event"};

/// The values of a line, by column.
using Row = std::vector<Json>;

std::vector<const char*> ColumnsOf(const ManipulatorOptions& options) {
    std::vector<const char*> columns(kPlainColumns.begin(), kPlainColumns.end());
    if (options.aircraft.load.reading == CockpitModel::Reading::Full)
        columns.insert(columns.end(), kFullColumns.begin(), kFullColumns.end());
    return columns;
}

struct ShownManipulator {
    Json kind = "other";
    Json from, to, dataref;
};

ShownManipulator ManipulatorOf(const MouseRect& rect) {
    const Annotator::PlainManipulator plain = Annotator::PlainManipulatorOf(rect);
    if (!plain.range)
        return {plain.kind, {}, {}, {}};
    return {plain.kind, plain.range->first, plain.range->second, JsonText(plain.dataref)};
}

/// In the words of the plain reading; null for a yoke part without a manipulator.
Json KindOf(const CockpitModel::Manipulator* manipulator) {
    if (!manipulator)
        return {};
    using enum CockpitModel::PlainEffect;
    return manipulator->plain == SetsToggle ? "toggle" : manipulator->plain == SetsDrag ? "drag" : "other";
}

ShownManipulator FullManipulatorOf(const NodePart& part) {
    ShownManipulator shown{KindOf(part.manipulator), {}, {}, {}};
    if (!part.manipulator)
        return shown;
    if (const auto range = part.manipulator->Range())
        std::tie(shown.from, shown.to) = *range;
    if (!part.manipulator->names.empty())
        shown.dataref = JsonText(part.manipulator->names.front());
    return shown;
}

Json TypeOrNull(const std::optional<CockpitModel::TouchInteractionType>& type) {
    return type ? Json(TouchInteractionTypeToText(*type)) : Json();
}

void AddFullColumns(const NodePart& part, Row& row) {
    const CockpitModel::ModelData& model = part.node->graph->Model();
    row.push_back(JsonText(model.objects.at(part.block.Object).name));
    row.push_back(part.block.SourceLine);
    row.push_back(part.manipulator ? part.manipulator->keyword : "");
    row.push_back(JsonText(part.manipulator ? boost::algorithm::join(part.manipulator->names, " ") : ""));
    row.push_back(TouchEventTypeToText(part.EventType));
}

Row RowOf(const NodePart& part, const CockpitModel::AnnotationStore& store, bool full) {
    const ShownManipulator manipulator = full ? FullManipulatorOf(part) : ManipulatorOf(*part.Rect());
    const CockpitModel::AnnotationRecord record = store.Get(part).value_or(CockpitModel::AnnotationRecord());
    Row row{part.node->index,
            part.id,
            part.block.ManipulatorLine,
            manipulator.kind,
            manipulator.from,
            manipulator.to,
            TouchInteractionTypeToText(part.InteractionType),
            TypeOrNull(record.InteractionType),
            TypeOrNull(record.InteractionTypeTest),
            manipulator.dataref};
    if (full)
        AddFullColumns(part, row);
    return row;
}

std::vector<Row> RowsOf(const Sim::AircraftInfo& info, const Annotator::LoadedAircraft& aircraft) {
    const bool full = aircraft.opened.cockpit->reading == CockpitModel::Reading::Full;
    const CockpitModel::SceneGraph& sceneGraph = *aircraft.built.sceneGraph;
    CockpitModel::AnnotationStore store(sceneGraph);
    store.Read(CockpitModel::FindAnnotations(info, aircraft.opened.cockpit->reading).path);
    std::vector<Row> rows;
    for (const auto& node : sceneGraph.Nodes())
        for (const auto& part : node->parts)
            if (part->Rect() || (full && IsYoke(part->InteractionType)))
                rows.push_back(RowOf(*part, store, full));
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

std::string JsonLines(const Sim::AircraftInfo& info, const std::vector<const char*>& columns,
                      const std::vector<Row>& rows) {
    std::string text;
    for (const Row& row : rows) {
        Json object{{"acfPath", JsonText(info.acfPath)}};
        for (std::size_t i = 0; i < row.size(); ++i)
            object[columns[i]] = row[i];
        text += (text.empty() ? "  " : ",\n  ") + object.dump();
    }
    return text;
}

std::string Table(const Sim::AircraftInfo& info, const std::vector<const char*>& columns,
                  const std::vector<Row>& rows) {
    std::vector<std::vector<std::string>> lines(rows.size() + 1, std::vector<std::string>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        lines.front()[i] = columns[i];
        for (std::size_t row = 0; row < rows.size(); ++row)
            lines[row + 1][i] = rows[row][i].is_null() ? "-" : Shown(Plain(rows[row][i]));
    }
    return NameOf(info) + ": " + Counted(rows.size(), "part") + " that can be clicked\n" +
           (rows.empty() ? std::string() : AlignedTable(lines, "  "));
}

JobOutput FormOf(const ManipulatorOptions& options, const Sim::AircraftInfo& info) {
    const Annotator::LoadedAircraft aircraft = Annotator::LoadAircraft(info, options.aircraft.load);
    const std::vector<Row> rows = RowsOf(info, aircraft);
    const std::vector<const char*> columns = ColumnsOf(options);
    return {options.csv    ? CsvLines(info, rows)
            : options.json ? JsonLines(info, columns, rows)
                           : Table(info, columns, rows),
            aircraft.built.model->remarks};
}

std::string CsvHeading(const ManipulatorOptions& options) {
    std::string heading = "acfPath";
    for (const char* column : ColumnsOf(options))
        heading += std::string(",") + column;
    return heading + '\n';
}

ExitCode Manips(const ManipulatorOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    const char* separator = options.json ? "[\n" : "";
    std::cout << (options.csv ? CsvHeading(options) : "");
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
    AddFullOption(app, options->aircraft.load);
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Manips(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) { return FormOf(*options, info); }};
}

} // namespace Batch
