#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/HeldSignals.h"
#include "Batch/Jobs.h"
#include "Batch/TestReport.h"
#include "Utils/SaveFile.h"
#include "Utils/Text.h"

#include <CLI/CLI.hpp>
#include <array>
#include <boost/filesystem/operations.hpp>
#include <iostream>
#include <memory>

namespace Batch {

namespace {

/// A report that the program can write, and the option that asks for it.
struct ReportForm {
    const char* option;
    const char* description;
    std::string (*make)(const TestReport& report);
};

constexpr std::array kReportForms{
    ReportForm{"--junit", "Writes the results as JUnit XML, a suite per aircraft", JUnitReport},
    ReportForm{"--json", "Writes the results as JSON", JsonReport},
    ReportForm{"--csv", "Writes the results as a table for a spreadsheet", CsvReport},
    ReportForm{"--html", "Writes the results as one page for a browser", HtmlReport},
};

struct TestOptions {
    std::array<std::string, kReportForms.size()> files; ///< by form; empty where it was not asked for
    std::size_t jobs = DefaultProcesses();
    bool requireTests = false;
    std::vector<std::string> aircraft;
};

/// The tests of an aircraft on their way to the parent; empty for an aircraft without annotations.
std::string TestOne(const Sim::AircraftInfo& info) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    try {
        std::optional<Annotator::AircraftTests> tests = Annotator::TestAircraft(info, repository);
        return tests ? SerialiseAircraft({*tests, FindProblems(*tests)}) : std::string();
    } catch (const Annotator::AircraftTestError& error) {
        throw std::runtime_error(error.reason); // without the aircraft's name, which the parent knows
    }
}

AircraftReport Unloaded(const Sim::AircraftInfo& info, const std::string& reason) {
    AircraftReport report;
    report.tests.displayName = Utils::Readable(info.displayName);
    report.tests.acfPath = Utils::Readable(info.acfPath);
    report.problems.push_back(Utils::Readable(reason));
    return report;
}

TestReport RunTests(const AircraftSelection& aircraft, std::size_t jobs, Console& console) {
    TestReport report;
    console.BeginProgress(aircraft.size());
    RunJobs(
        aircraft.size(), jobs, [&](std::size_t index) { return TestOne(*aircraft[index]); },
        [&](const JobResult& result) {
            const Sim::AircraftInfo& info = *aircraft[result.index];
            if (result.failure)
                report.push_back(Unloaded(info, *result.failure));
            else if (!result.output.empty())
                report.push_back(ParseAircraft(result.output));
            console.Advance();
        });
    console.EndProgress();
    return report;
}

void TellProblems(const TestReport& report, Console& console) {
    for (const auto& [tests, problems] : report)
        for (const std::string& problem : problems)
            console.Message(tests.displayName + " (" + tests.acfPath + "): " + problem);
}

/// False when one could not be written.
bool WriteReports(const TestReport& report, const TestOptions& options, Session& session) {
    const HeldSignals held;
    bool written = true;
    for (std::size_t i = 0; i < kReportForms.size(); ++i) {
        if (options.files[i].empty())
            continue;
        const std::string path = session.CallersPath(options.files[i]);
        if (const auto saved = Utils::SaveFile(path, kReportForms[i].make(report)); !saved) {
            session.console.Message(saved.error);
            written = false;
        }
    }
    return written;
}

ExitCode Outcome(const TestTotals& totals, const TestOptions& options, Console& console) {
    console.Message(Counted(totals.passed, "test") + " passed, " + std::to_string(totals.failed) + " failed");
    // An expectation that was not tested weighs more than one that failed.
    if (totals.withProblems > 0)
        return kAircraftFailed;
    if (totals.Tests() > 0)
        return totals.failed > 0 ? kTestFailed : kDone;
    console.Message(
        "no test found: no annotation file of these aircraft in QVRA/Annotations has an InteractionTypeTest");
    return options.requireTests ? kTestFailed : kDone;
}

ExitCode Test(const TestOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const AircraftSelection aircraft = SelectAircraft(list, options.aircraft);
    const TestReport report = RunTests(aircraft, options.jobs, session.console);
    PrintTable(std::cout, report);
    // Ahead of the messages, where both streams go to one terminal.
    std::cout.flush();
    TellProblems(report, session.console);
    const bool written = WriteReports(report, options, session);
    const ExitCode outcome = Outcome(Totals(report), options, session.console);
    return written ? outcome : kNotWritten;
}

} // namespace

Action PrepareTest(CLI::App& app) {
    auto options = std::make_shared<TestOptions>();
    for (std::size_t i = 0; i < kReportForms.size(); ++i)
        app.add_option(kReportForms[i].option, options->files[i], kReportForms[i].description)->type_name("FILE");
    app.add_flag("--require-tests", options->requireTests, "Fails when there is no test at all");
    AddJobsOption(app, options->jobs);
    AddAircraftOption(app, options->aircraft);
    return [options](Session& session) { return Test(*options, session); };
}

} // namespace Batch
