#include "Annotator/Lint.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs.h"
#include "Batch/Json.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

namespace Batch {

namespace {

using Annotator::LintFinding;
using Annotator::LintSeverity;

struct LintOptions {
    bool json = false;
    std::size_t jobs = DefaultProcesses();
    std::vector<std::string> aircraft;
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

/// "file:line: severity: what is wrong", as compilers write it, and below it what to do.
void PrintFinding(std::ostream& stream, const Json& finding) {
    const auto text = [&](const char* name) { return finding[name].get<std::string>(); };
    stream << text("file") << (finding["line"].is_null() ? "" : ":" + finding["line"].dump()) << ": "
           << text("severity") << ": " << text("wrong") << " [" << text("check") << "]\n    " << text("mend") << '\n';
}

ExitCode Lint(const LintOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const AircraftSelection aircraft = SelectAircraft(list, options.aircraft);
    Json all = Json::array();
    std::size_t notes = 0, findings = 0, failed = 0;
    RunJobs(aircraft, options.jobs, LintOne, [&](const JobResult& result) {
        if (result.failure) {
            session.console.Message(NameOf(*result.aircraft) + ": " + *result.failure);
            ++failed;
            return;
        }
        for (Json& finding : Json::parse(result.output)) {
            ++(finding["severity"] == LintSeverityText(LintSeverity::Note) ? notes : findings);
            if (options.json)
                all.push_back(std::move(finding));
            else
                PrintFinding(std::cout, finding);
        }
    });
    if (options.json)
        std::cout << all.dump(1) << '\n';
    std::cout.flush(); // ahead of the message, where both streams go to one terminal
    session.console.Message(Counted(findings, "finding") + " and " + Counted(notes, "note") + " in " +
                            std::to_string(aircraft.size()) + " aircraft, of which " + std::to_string(failed) +
                            " could not be read");
    return failed > 0 ? kAircraftFailed : findings > 0 ? kTestFailed : kDone;
}

} // namespace

Action PrepareLint(CLI::App& app) {
    auto options = std::make_shared<LintOptions>();
    app.footer("Exit codes: 0 nothing but notes, 1 errors or warnings, 2 wrong usage, 3 an aircraft cannot be read.");
    app.add_flag("--json", options->json, "A list of objects");
    AddJobsOption(app, options->jobs);
    AddAircraftOption(app, options->aircraft);
    return [options](Session& session) { return Lint(*options, session); };
}

} // namespace Batch
