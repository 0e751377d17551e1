#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Reports/PublishReport.h"
#include "Utils/Text.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <memory>

namespace Batch {

namespace {

struct TestOptions {
    ReportOptions reports;
    Annotator::LoadOptions load;
    std::size_t jobs = DefaultProcesses();
    std::vector<std::string> aircraft;
};

/// The tests of an aircraft, encoded for the parent process; empty for an aircraft without annotations.
std::string TestOne(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    try {
        std::optional<Annotator::AircraftResult> tests = Annotator::CheckAircraft(info, repository, load);
        return tests ? SerialiseAircraft({*tests, FindProblems(*tests)}) : std::string();
    } catch (const Annotator::AircraftCheckError& error) {
        std::rethrow_if_nested(error); // the cause, without the aircraft's name, which the parent adds
        throw;
    }
}

AircraftReport Unloaded(const Sim::AircraftInfo& info, const std::string& reason) {
    AircraftReport report;
    report.tests.displayName = Utils::ToValidUtf8(info.displayName);
    report.tests.acfPath = Utils::ToValidUtf8(info.acfPath);
    report.problems.push_back(Utils::ToValidUtf8(reason));
    return report;
}

TestReport RunTests(const AircraftSelection& aircraft, const TestOptions& options, Console& console) {
    TestReport report;
    console.BeginProgress(aircraft.size());
    RunJobs(
        aircraft, options.jobs, [&](const Sim::AircraftInfo& info) { return TestOne(info, options.load); },
        [&](const JobResult& result) {
            if (result.failure)
                report.push_back(Unloaded(*result.aircraft, *result.failure));
            else if (!result.output.empty())
                report.push_back(ParseAircraft(result.output));
            console.Advance();
        });
    console.EndProgress();
    return report;
}

ExitCode Test(const TestOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const AircraftSelection aircraft = SelectAircraft(list, options.aircraft);
    return PublishReport(RunTests(aircraft, options, session.console), options.reports, session);
}

} // namespace

Action PrepareTest(CLI::App& app) {
    auto options = std::make_shared<TestOptions>();
    AddReportOptions(app, options->reports);
    AddUntexturedOption(app, options->load);
    AddJobsOption(app, options->jobs);
    AddAircraftOption(app, options->aircraft);
    return [options](Session& session) { return Test(*options, session); };
}

} // namespace Batch
