#include "Batch/Reports/TestReport.h"

#include "Batch/Console.h"
#include "Batch/Reports/AlignedTable.h"
#include "Batch/Reports/CsvLine.h"

namespace Batch {

namespace {

using CockpitModel::TouchInteractionTypeToText;

using Row = std::vector<std::string>;

bool IsFull(const TestReport& report) {
    return Totals(report).full > 0;
}

bool IsOfVrConfig(const TestReport& report) {
    return Totals(report).vrConfig > 0;
}

std::vector<Row> CountRows(const TestReport& report) {
    const bool full = IsFull(report);
    std::vector<Row> rows{{"Aircraft", "Passed", "Failed", "Total"}};
    if (full)
        rows.front().push_back("Failed as plain");
    for (const AircraftReport& aircraft : report) {
        const Annotator::AircraftResult& tests = aircraft.tests;
        if (tests.Total() == 0)
            continue;
        rows.push_back({Shown(tests.displayName), std::to_string(tests.Passed()), std::to_string(tests.Failed()),
                        std::to_string(tests.Total())});
        if (full)
            rows.back().push_back(std::to_string(tests.FailedAsPlain()));
    }
    return rows;
}

/// A heading and one row per failed part.
std::vector<Row> FailureRows(const TestReport& report) {
    const bool full = IsFull(report), ofVrConfig = IsOfVrConfig(report);
    std::vector<Row> rows{{"Failed part of", "NodeId", "PartId", "Mouse rectangle", "Expected", "Detected"}};
    if (full)
        rows.front().push_back("Plain");
    if (ofVrConfig)
        rows.front().push_back("Block in line");
    for (const AircraftReport& aircraft : report)
        for (const Annotator::PartResult& part : aircraft.tests.parts) {
            if (part.passed)
                continue;
            rows.push_back({Shown(aircraft.tests.displayName), std::to_string(part.NodeId), std::to_string(part.PartId),
                            part.rectangle.empty() ? "-" : Shown(part.rectangle),
                            TouchInteractionTypeToText(part.expected), TouchInteractionTypeToText(part.detected)});
            if (full)
                rows.back().push_back(part.plain ? TouchInteractionTypeToText(*part.plain) : "-");
            if (ofVrConfig)
                rows.back().push_back(std::to_string(part.blockLine));
        }
    return rows;
}

} // namespace

std::string TableText(const TestReport& report) {
    const std::vector<Row> failures = FailureRows(report);
    return AlignedTable(CountRows(report)) + (failures.size() > 1 ? '\n' + AlignedTable(failures) : "");
}

std::string CsvReport(const TestReport& report) {
    const bool full = IsFull(report), ofVrConfig = IsOfVrConfig(report);
    Row heading{"aircraft", "acfPath", "nodeId", "partId", "mouseRect", "expected", "detected", "result", "problem"};
    std::string csv;
    const auto add = [&](Row row, const std::string& plain, const std::string& blockLine) {
        if (full)
            row.push_back(plain);
        if (ofVrConfig)
            row.push_back(blockLine);
        csv += CsvLine(row);
    };
    add(std::move(heading), "plain", "blockLine");
    for (const auto& [tests, problems] : report) {
        for (const Annotator::PartResult& part : tests.parts)
            add({tests.displayName, tests.acfPath, std::to_string(part.NodeId), std::to_string(part.PartId),
                 part.rectangle, TouchInteractionTypeToText(part.expected), TouchInteractionTypeToText(part.detected),
                 part.passed ? "passed" : "failed", ""},
                part.plain ? TouchInteractionTypeToText(*part.plain) : "", std::to_string(part.blockLine));
        for (const std::string& problem : problems)
            add({tests.displayName, tests.acfPath, "", "", "", "", "", "error", problem}, "", "");
        if (LacksVrConfig(tests))
            add({tests.displayName, tests.acfPath, "", "", "", "", "", "skipped", NoVrConfigText(tests)}, "", "");
    }
    return csv;
}

} // namespace Batch
