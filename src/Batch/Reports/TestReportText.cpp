#include "Batch/Reports/TestReport.h"

#include "Batch/Console.h"
#include "Batch/Reports/AlignedTable.h"
#include "Batch/Reports/CsvLine.h"

namespace Batch {

namespace {

using CockpitModel::TouchInteractionTypeToText;

using Row = std::vector<std::string>;

std::vector<Row> CountRows(const TestReport& report) {
    std::vector<Row> rows{{"Aircraft", "Passed", "Failed", "Total"}};
    for (const AircraftReport& aircraft : report) {
        const Annotator::AircraftResult& tests = aircraft.tests;
        if (tests.Total() > 0)
            rows.push_back({Shown(tests.displayName), std::to_string(tests.Passed()), std::to_string(tests.Failed()),
                            std::to_string(tests.Total())});
    }
    return rows;
}

/// A heading and one row per failed part.
std::vector<Row> FailureRows(const TestReport& report) {
    std::vector<Row> rows{{"Failed part of", "NodeId", "PartId", "Mouse rectangle", "Expected", "Detected"}};
    for (const AircraftReport& aircraft : report)
        for (const Annotator::PartResult& part : aircraft.tests.parts)
            if (!part.passed)
                rows.push_back({Shown(aircraft.tests.displayName), std::to_string(part.NodeId),
                                std::to_string(part.PartId), part.rectangle.empty() ? "-" : Shown(part.rectangle),
                                TouchInteractionTypeToText(part.expected), TouchInteractionTypeToText(part.detected)});
    return rows;
}

} // namespace

std::string TableText(const TestReport& report) {
    const std::vector<Row> failures = FailureRows(report);
    return AlignedTable(CountRows(report)) + (failures.size() > 1 ? '\n' + AlignedTable(failures) : "");
}

std::string CsvReport(const TestReport& report) {
    std::string csv = "aircraft,acfPath,nodeId,partId,mouseRect,expected,detected,result,problem\n";
    for (const auto& [tests, problems] : report) {
        for (const Annotator::PartResult& part : tests.parts)
            csv += CsvLine({tests.displayName, tests.acfPath, std::to_string(part.NodeId), std::to_string(part.PartId),
                            part.rectangle, TouchInteractionTypeToText(part.expected),
                            TouchInteractionTypeToText(part.detected), part.passed ? "passed" : "failed", ""});
        for (const std::string& problem : problems)
            csv += CsvLine({tests.displayName, tests.acfPath, "", "", "", "", "", "error", problem});
    }
    return csv;
}

} // namespace Batch
