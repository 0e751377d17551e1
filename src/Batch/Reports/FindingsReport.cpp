#include "Batch/Reports/FindingsReport.h"

#include "Batch/ForEachAircraft.h"
#include "Batch/Reports/Json.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <span>

namespace Batch {

namespace {

using Annotator::LintFinding;
using Annotator::LintSeverity;

/// Findings of one check printed in full; the rest are only counted.
constexpr std::size_t kShown = 3;
constexpr std::size_t kRestLines = 12;

Json ToJson(const LintFinding& finding) {
    return {{"severity", LintSeverityText(finding.severity)},
            {"check", finding.check},
            {"file", JsonText(finding.file)},
            {"line", finding.line == 0 ? Json() : Json(finding.line)},
            {"message", JsonText(finding.message)},
            {"fix", JsonText(finding.fix)}};
}

LintFinding FindingFromJson(const Json& json) {
    const Json& line = json.at("line");
    return {.severity = Annotator::LintSeverityFromText(json.at("severity").get<std::string>()),
            .check = json.at("check"),
            .file = json.at("file"),
            .line = line.is_null() ? 0 : line.get<std::uint32_t>(),
            .message = json.at("message"),
            .fix = json.at("fix")};
}

Json ToJson(const std::vector<LintFinding>& findings) {
    Json list = Json::array();
    for (const LintFinding& finding : findings)
        list.push_back(ToJson(finding));
    return list;
}

std::vector<LintFinding> FindingsFromJson(const Json& list) {
    std::vector<LintFinding> findings;
    for (const Json& finding : list)
        findings.push_back(FindingFromJson(finding));
    return findings;
}

/// In the format of compilers.
std::string FindingText(const LintFinding& finding) {
    return Shown(finding.file) + (finding.line == 0 ? "" : ":" + std::to_string(finding.line)) + ": " +
           LintSeverityText(finding.severity) + ": " + Shown(finding.message) + " [" + finding.check + "]\n";
}

std::string RestText(std::span<const LintFinding> rest) {
    std::string text = "    and " + std::to_string(rest.size()) + " more like these, in lines ";
    for (std::size_t i = 0; i < std::min(rest.size(), kRestLines); ++i)
        text += (i > 0 ? ", " : "") + std::to_string(rest[i].line);
    return text + (rest.size() > kRestLines ? ", ...; use --all to print them\n" : "; use --all to print them\n");
}

/// The findings of one check and severity, each followed by its fix unless the next finding has the same one.
std::string GroupText(std::span<const LintFinding> group, bool all) {
    // Replacing a single finding by a line that counts it would save nothing.
    const std::size_t shown = all || group.size() <= kShown + 1 ? group.size() : kShown;
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        text += FindingText(group[i]);
        if (i + 1 == shown && shown < group.size())
            text += RestText(group.subspan(shown));
        if (i + 1 == shown || group[i].fix != group[i + 1].fix)
            text += "    " + Shown(group[i].fix) + '\n';
    }
    return text;
}

std::string FindingsText(std::vector<LintFinding> findings, bool all) {
    const auto kind = [](const LintFinding& finding) { return std::pair(finding.severity, finding.check); };
    // Ordered by the first finding of each kind: the most severe findings come first.
    std::vector<std::pair<LintSeverity, std::string>> kinds;
    for (const LintFinding& finding : findings)
        if (std::ranges::find(kinds, kind(finding)) == kinds.end())
            kinds.push_back(kind(finding));
    std::ranges::stable_sort(findings, {},
                             [&](const LintFinding& finding) { return std::ranges::find(kinds, kind(finding)); });
    const std::span<const LintFinding> sorted = findings;
    std::string text;
    for (std::size_t first = 0, next = 0; first < sorted.size(); first = next) {
        while (next < sorted.size() && kind(sorted[next]) == kind(sorted[first]))
            ++next;
        text += GroupText(sorted.subspan(first, next - first), all);
    }
    return text;
}

/// Counts, most severe first: "1 error, 2 warnings and 1 note".
std::string Totals(std::map<LintSeverity, std::size_t>& counts) {
    const auto count = [&](LintSeverity severity) { return Counted(counts[severity], LintSeverityText(severity)); };
    return count(LintSeverity::Error) + ", " + count(LintSeverity::Warning) + " and " + count(LintSeverity::Note);
}

} // namespace

void AddFindingsOptions(CLI::App& app, FindingsOptions& options) {
    app.add_flag("--all", options.all, "Print every finding, including repeated ones");
    app.add_flag("--json", options.json, "Print all findings as a list of JSON objects");
}

std::string SerialiseFindings(const std::vector<LintFinding>& findings) {
    return ToJson(findings).dump();
}

ExitCode ReportFindings(const FindingsOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    Json everything = Json::array();
    std::map<LintSeverity, std::size_t> counts;
    const auto take = [&](const Sim::AircraftInfo&, const std::string& output) {
        const std::vector<LintFinding> findings = FindingsFromJson(Json::parse(output));
        for (const LintFinding& finding : findings)
            ++counts[finding.severity];
        if (options.json)
            std::ranges::transform(findings, std::back_inserter(everything),
                                   [](const LintFinding& finding) { return ToJson(finding); });
        else
            Print(FindingsText(findings, options.all));
    };
    const std::size_t failed = ForEachAircraft(aircraft, session.console, {.take = take});
    if (options.json)
        PrintJson(everything.dump(1) + '\n');
    FlushPrinted();
    session.console.Message(Totals(counts) + " in " + std::to_string(aircraft.selection.size() - failed) + " aircraft" +
                            (failed > 0 ? ", " + std::to_string(failed) + " more could not be read" : ""));
    const bool clean = counts[LintSeverity::Error] + counts[LintSeverity::Warning] == 0;
    return failed > 0 ? kAircraftFailed : clean ? kDone : kTestFailed;
}

} // namespace Batch
