#include "Annotator/Lint/Lint.h"
#include "Batch/Commands.h"
#include "Batch/ForEachAircraft.h"
#include "Batch/Reports/Json.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <span>

namespace Batch {

namespace {

using Annotator::LintFinding;
using Annotator::LintSeverity;

/// So many findings of a kind a person reads before the rest is but counted.
constexpr std::size_t kShown = 3;
constexpr std::size_t kLinesOfRest = 12;

struct LintOptions {
    bool json = false, all = false;
    AircraftOptions aircraft;
};

/// The findings on their way to the parent, and as --json prints them.
std::string LintOne(const Sim::AircraftInfo& info) {
    Json list = Json::array();
    for (const LintFinding& finding : Annotator::LintAircraft(info))
        list.push_back({{"severity", LintSeverityText(finding.severity)},
                        {"check", finding.check},
                        {"file", JsonText(finding.file)},
                        {"line", finding.line == 0 ? Json() : Json(finding.line)},
                        {"wrong", JsonText(finding.wrong)},
                        {"mend", JsonText(finding.mend)}});
    return list.dump();
}

std::string Place(const Json& finding) {
    const Json& line = finding["line"];
    return Shown(finding["file"].get<std::string>()) + (line.is_null() ? "" : ":" + line.dump());
}

/// As compilers write it.
std::string FindingText(const Json& finding) {
    const auto text = [&](const char* name) { return Shown(finding[name].get<std::string>()); };
    return Place(finding) + ": " + text("severity") + ": " + text("wrong") + " [" + text("check") + "]\n";
}

std::string RestText(std::span<const Json> rest) {
    std::string text = "    and " + std::to_string(rest.size()) + " more like these, in lines ";
    for (std::size_t i = 0; i < std::min(rest.size(), kLinesOfRest); ++i)
        text += (i > 0 ? ", " : "") + rest[i]["line"].dump();
    return text + (rest.size() > kLinesOfRest ? ", ...; --all prints each\n" : "; --all prints each\n");
}

/// Those of one check and severity, and below them what to do: once where it is the same for all.
std::string GroupText(std::span<const Json> group, bool all) {
    // One line in the place of one finding would save nobody any reading.
    const std::size_t shown = all || group.size() <= kShown + 1 ? group.size() : kShown;
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        text += FindingText(group[i]);
        if (i + 1 == shown && shown < group.size())
            text += RestText(group.subspan(shown));
        if (i + 1 == shown || group[i]["mend"] != group[i + 1]["mend"])
            text += "    " + Shown(group[i]["mend"].get<std::string>()) + '\n';
    }
    return text;
}

std::string FindingsText(std::vector<Json> findings, bool all) {
    const auto kind = [](const Json& finding) { return std::pair(finding["severity"], finding["check"]); };
    // By the first of each kind, as the worst come first.
    std::vector<decltype(kind(Json()))> kinds;
    for (const Json& finding : findings)
        if (std::ranges::find(kinds, kind(finding)) == kinds.end())
            kinds.push_back(kind(finding));
    std::ranges::stable_sort(findings, {},
                             [&](const Json& finding) { return std::ranges::find(kinds, kind(finding)); });
    const std::span<const Json> sorted = findings;
    std::string text;
    for (std::size_t first = 0, next = 0; first < sorted.size(); first = next) {
        while (next < sorted.size() && kind(sorted[next]) == kind(sorted[first]))
            ++next;
        text += GroupText(sorted.subspan(first, next - first), all);
    }
    return text;
}

/// Counts by severity, worst first: "1 error, 2 warnings and 1 note".
std::string Totals(const std::map<std::string, std::size_t>& counts) {
    const auto count = [&](LintSeverity severity) {
        const auto found = counts.find(LintSeverityText(severity));
        return Counted(found == counts.end() ? 0 : found->second, LintSeverityText(severity));
    };
    return count(LintSeverity::Error) + ", " + count(LintSeverity::Warning) + " and " + count(LintSeverity::Note);
}

ExitCode Lint(const LintOptions& options, Session& session) {
    const SelectedAircraft aircraft = LoadSelection(options.aircraft, session.console);
    Json everything = Json::array();
    std::map<std::string, std::size_t> counts; // by severity
    const auto take = [&](const Sim::AircraftInfo&, const std::string& output) {
        const auto findings = Json::parse(output).get<std::vector<Json>>();
        for (const Json& finding : findings)
            ++counts[finding["severity"].get<std::string>()];
        if (options.json)
            std::ranges::copy(findings, std::back_inserter(everything));
        else
            Print(FindingsText(findings, options.all));
    };
    const std::size_t failed = ForEachAircraft(aircraft, session.console, LintOne, {.take = take});
    if (options.json)
        PrintJson(everything.dump(1) + '\n');
    FlushPrinted();
    session.console.Message(Totals(counts) + " in " + std::to_string(aircraft.selection.size() - failed) + " aircraft" +
                            (failed > 0 ? ", " + std::to_string(failed) + " more could not be read" : ""));
    const bool clean =
        counts[LintSeverityText(LintSeverity::Error)] + counts[LintSeverityText(LintSeverity::Warning)] == 0;
    return failed > 0 ? kAircraftFailed : clean ? kDone : kTestFailed;
}

} // namespace

Action PrepareLint(CLI::App& app) {
    auto options = std::make_shared<LintOptions>();
    app.add_flag("--all", options->all, "Prints every finding, however often it repeats itself");
    app.add_flag("--json", options->json, "A list of objects, with every finding");
    AddSelectionOptions(app, options->aircraft);
    return [options](Session& session) { return Lint(*options, session); };
}

} // namespace Batch
