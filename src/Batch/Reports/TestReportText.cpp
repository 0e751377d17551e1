#include "Batch/Reports/TestReport.h"

#include "Batch/Console.h"
#include "Batch/Reports/CsvLine.h"

#include <algorithm>
#include <array>

namespace Batch {

namespace {

using CockpitModel::TouchInteractionTypeToText;

using Row = std::vector<std::string>;

/// Counts characters: all bytes except UTF-8 continuation bytes.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

/// Columns separated by two spaces, without trailing spaces.
std::string Aligned(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text += row[i] + std::string(i + 1 < row.size() ? widths[i] - Width(row[i]) + 2 : 0, ' ');
        text += '\n';
    }
    return text;
}

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
    return Aligned(CountRows(report)) + (failures.size() > 1 ? '\n' + Aligned(failures) : "");
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
