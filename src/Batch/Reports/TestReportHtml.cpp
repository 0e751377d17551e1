#include "Batch/Console.h"
#include "Batch/Reports/Html.h"
#include "Batch/Reports/TestReport.h"
#include "Batch/Reports/TestReportStyle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace Batch {

namespace {

using Annotator::AircraftResult;
using Annotator::PartResult;
using CockpitModel::TouchInteractionType;
using CockpitModel::TouchInteractionTypeToText;

constexpr std::array kTypes{TouchInteractionType::None,       TouchInteractionType::Tap,
                            TouchInteractionType::Twist,      TouchInteractionType::Move,
                            TouchInteractionType::Radio,      TouchInteractionType::YokePart,
                            TouchInteractionType::YokePrimary};

std::string NumberCell(std::size_t number, const char* style = "") {
    return Element("td", std::to_string(number), std::string("class=\"number ") + (number > 0 ? style : "") + "\"");
}

std::string Tile(const std::string& value, const std::string& label, const char* style = "") {
    return Element("div", Element("b", value, std::string("class=\"") + style + "\"") + label, "class=\"tile\"") + "\n";
}

/// Rounded down, so that only all tests give 100 %.
std::string Percent(std::size_t part, std::size_t whole) {
    return whole == 0 ? "–" : std::to_string(100 * part / whole) + " %";
}

/// Expected and detected type.
using Cell = std::pair<TouchInteractionType, TouchInteractionType>;

struct TestedPart {
    const AircraftResult* aircraft;
    const PartResult* part;
};

using PartsByCell = std::map<Cell, std::vector<TestedPart>>;

PartsByCell SortByCell(const TestReport& report) {
    PartsByCell cells;
    for (const AircraftReport& aircraft : report)
        for (const PartResult& part : aircraft.tests.parts)
            cells[{part.expected, part.detected}].push_back({&aircraft.tests, &part});
    return cells;
}

std::string Anchor(const Cell& cell) {
    return TouchInteractionTypeToText(cell.first) + "-as-" + TouchInteractionTypeToText(cell.second);
}

std::string Verdict(const TestTotals& totals) {
    if (totals.failed > 0)
        return Element("p", std::to_string(totals.failed) + " of " + Counted(totals.Tests(), "test") + " failed.",
                       "class=\"bad\"");
    if (totals.Tests() == 0)
        return Element("p", "There are no tests.", "class=\"soft\"");
    return Element(
        "p", totals.Tests() == 1 ? "The test passed." : "All " + std::to_string(totals.Tests()) + " tests passed.",
        "class=\"good\"");
}

std::string Summary(const TestReport& report) {
    const TestTotals totals = Totals(report);
    std::string html = Element("h1", "Vorelle batch tests") + "\n" + Verdict(totals) + "\n<div class=\"tiles\">\n";
    html += Tile(std::to_string(totals.Tests()), "tests");
    html += Tile(std::to_string(totals.passed), "passed", totals.passed > 0 ? "good" : "");
    html += Tile(std::to_string(totals.failed), "failed", totals.failed > 0 ? "bad" : "");
    if (totals.full > 0)
        html += Tile(std::to_string(totals.failedAsPlain), "failed as the plain reading detects",
                     totals.failedAsPlain > 0 ? "warn" : "");
    if (totals.vrConfig > 0)
        html += Tile(std::to_string(totals.vrConfig - totals.withoutVrConfig), "aircraft with a _vrconfig.txt") +
                Tile(std::to_string(totals.withoutVrConfig), "aircraft without one");
    else
        html += Tile(std::to_string(report.size()), "annotated aircraft");
    html += Tile(std::to_string(totals.withProblems), "aircraft with problems", totals.withProblems > 0 ? "warn" : "");
    html += Tile(Percent(totals.covered, totals.clickable), "of clickable parts covered");
    return html + "</div>\n";
}

std::string MatrixCell(const PartsByCell& cells, const Cell& cell) {
    const auto parts = cells.find(cell);
    if (parts == cells.end())
        return Element("td", "·", "class=\"soft\"");
    return Element("td", Element("a", std::to_string(parts->second.size()),
                                 "class=\"" + std::string(cell.first == cell.second ? "same" : "other") +
                                     "\" href=\"#" + Anchor(cell) + "\""));
}

std::string Matrix(const PartsByCell& cells) {
    std::string head = Element("td", "expected ↓ &ensp; detected →", "class=\"soft\"");
    std::string rows;
    for (const TouchInteractionType expected : kTypes) {
        const std::string name = TouchInteractionTypeToText(expected);
        head += Element("th", name, "scope=\"col\"");
        std::string row = Element("th", name, "scope=\"row\"");
        for (const TouchInteractionType detected : kTypes)
            row += MatrixCell(cells, {expected, detected});
        rows += Element("tr", row) + "\n";
    }
    return Element("h2", "Expected against detected types") + "\n" + Table(head, rows, "matrix");
}

std::string Problems(const TestReport& report) {
    std::string items;
    for (const auto& [tests, problems] : report)
        for (const std::string& problem : problems)
            items += Element("li", Element("strong", Escaped(tests.displayName)) + ": " + Escaped(problem) +
                                       Element("span", Escaped(tests.acfPath), "class=\"path\"")) +
                     "\n";
    return items.empty() ? "" : Element("h2", "Problems") + "\n<ul>\n" + items + "</ul>\n";
}

std::string Coverage(const AircraftResult& tests) {
    const std::string value = std::to_string(tests.covered), most = std::to_string(tests.clickable);
    if (tests.clickable == 0)
        return Element("td", "–", "class=\"soft\"");
    return Element("td", Element("meter", "", "max=\"" + most + "\" value=\"" + value + "\"") + value + " of " + most +
                             " parts");
}

/// Aircraft without tests have a row too, which shows their missing coverage.
std::string AircraftRows(const TestReport& report) {
    std::string rows;
    for (const auto& [tests, problems] : report) {
        std::string mark = problems.empty() ? "" : " " + Element("span", "▲ problem", "class=\"warn\"");
        if (LacksVrConfig(tests))
            mark += " " + Element("span", "not tested: " + Escaped(NoVrConfigText(tests)), "class=\"soft\"");
        rows += Element("tr", Element("td", Escaped(tests.displayName) + mark +
                                                Element("span", Escaped(tests.acfPath), "class=\"path\"")) +
                                  NumberCell(tests.Passed(), "good") + NumberCell(tests.Failed(), "bad") +
                                  NumberCell(tests.Total()) + Coverage(tests)) +
                "\n";
    }
    return rows;
}

std::string Aircraft(const TestReport& report) {
    return Element("h2", "Aircraft") + "\n" +
           Table(HeadCells({{"Aircraft", ""},
                            {"Passed", "number"},
                            {"Failed", "number"},
                            {"Total", "number"},
                            {"Clickable parts with an expectation", ""}}),
                 AircraftRows(report));
}

/// Failed tests of the full reading have a column with what the plain one detects.
bool HasPlainColumn(const AircraftResult& aircraft, const PartResult& part) {
    return aircraft.reading == CockpitModel::Reading::Full && !part.passed;
}

std::string PlainCell(const AircraftResult& aircraft, const PartResult& part) {
    if (!HasPlainColumn(aircraft, part))
        return {};
    return Element("td", part.plain ? TouchInteractionTypeToText(*part.plain) : "–");
}

std::string PictureCell(const AircraftResult& aircraft, const PartResult& part) {
    if (part.picture.empty())
        return {};
    const std::string description =
        "Node " + std::to_string(part.NodeId) + " part " + std::to_string(part.PartId) + " of " + aircraft.displayName;
    return Element("td", PngElement(part.picture, description, kTestPicture.width, kTestPicture.height));
}

/// Tests of blocks have a column with their lines.
bool HasBlockColumn(const AircraftResult& aircraft) {
    return aircraft.source == Annotator::ExpectationSource::VrConfig;
}

std::string BlockCell(const AircraftResult& aircraft, const PartResult& part) {
    return HasBlockColumn(aircraft) ? Element("td", std::to_string(part.blockLine), "class=\"number\"") : "";
}

std::string BlockHead(const std::vector<TestedPart>& parts) {
    const auto has = [](const TestedPart& tested) { return HasBlockColumn(*tested.aircraft); };
    return std::ranges::any_of(parts, has) ? HeadCells({{"Block in line", "number"}}) : "";
}

std::string PlainHead(const std::vector<TestedPart>& parts) {
    const auto has = [](const TestedPart& tested) { return HasPlainColumn(*tested.aircraft, *tested.part); };
    return std::ranges::any_of(parts, has) ? HeadCells({{"Plain", ""}}) : "";
}

std::string PictureHead(const std::vector<TestedPart>& parts) {
    const auto has = [](const TestedPart& tested) { return !tested.part->picture.empty(); };
    return std::ranges::any_of(parts, has) ? HeadCells({{"Picture", ""}}) : "";
}

std::string PartsOfCell(const Cell& cell, const std::vector<TestedPart>& parts) {
    std::string rows;
    for (const auto& [aircraft, part] : parts)
        rows +=
            Element("tr",
                    Element("td", Escaped(aircraft->displayName)) +
                        Element("td", std::to_string(part->NodeId), "class=\"number\"") +
                        Element("td", std::to_string(part->PartId), "class=\"number\"") +
                        Element("td", part->rectangle.empty() ? "–" : Escaped(part->rectangle), "class=\"rectangle\"") +
                        PlainCell(*aircraft, *part) + BlockCell(*aircraft, *part) + PictureCell(*aircraft, *part)) +
            "\n";
    const std::string title = "Expected " + TouchInteractionTypeToText(cell.first) + ", detected " +
                              TouchInteractionTypeToText(cell.second) + " (" + std::to_string(parts.size()) + ")";
    return Element("h3", title, "id=\"" + Anchor(cell) + "\"") + "\n" +
           Table(HeadCells({{"Aircraft", ""}, {"NodeId", "number"}, {"PartId", "number"}, {"Mouse rectangle", ""}}) +
                     PlainHead(parts) + BlockHead(parts) + PictureHead(parts),
                 rows);
}

std::string Parts(const PartsByCell& cells, bool passed) {
    std::string html;
    // In the order of the matrix, so that a cell's parts can be found without its link.
    for (const auto& [cell, parts] : cells)
        if ((cell.first == cell.second) == passed)
            html += PartsOfCell(cell, parts);
    return html.empty() ? "" : Element("h2", passed ? "Passed parts" : "Failed parts") + "\n" + html;
}

} // namespace

std::string HtmlReport(const TestReport& report) {
    const PartsByCell cells = SortByCell(report);
    return PageHead("Vorelle batch tests") + kTestReportStyle + kPageBody + Summary(report) + Problems(report) +
           Matrix(cells) + Aircraft(report) + Parts(cells, false) + Parts(cells, true) + kPageTail;
}

} // namespace Batch
