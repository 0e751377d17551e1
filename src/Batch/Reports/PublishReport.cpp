#include "Batch/Reports/PublishReport.h"

#include "Batch/Jobs/ScopedSignalBlock.h"

namespace Batch {

namespace {

void PrintProblems(const TestReport& report, Console& console) {
    for (const auto& [tests, problems] : report)
        for (const std::string& problem : problems)
            console.Message(Shown(tests.displayName + " (" + tests.acfPath + "): " + problem));
}

/// Aircraft that a message lists at most.
constexpr std::size_t kNamed = 10;

void PrintAircraftWithoutVrConfig(const TestReport& report, Console& console) {
    std::size_t count = 0;
    std::string names;
    for (const AircraftReport& aircraft : report)
        if (LacksVrConfig(aircraft.tests) && ++count <= kNamed)
            names += (count > 1 ? ", " : "") + Shown(aircraft.tests.displayName);
    if (count > 0)
        console.Message(Counted(count, "aircraft", "aircraft") + " without a _vrconfig.txt, not tested: " + names +
                        (count > kNamed ? " and " + std::to_string(count - kNamed) + " more" : ""));
}

/// False if a report could not be written.
bool WriteReports(const TestReport& report, const ReportOptions& options, Session& session) {
    bool written = true;
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        if (options.files[i].empty())
            continue;
        const std::string path = session.ResolveArgument(options.files[i]);
        if (const auto saved = SaveWithSignalsHeld(path, kReportForms[i].make(report)); !saved) {
            session.console.Message(saved.error);
            written = false;
        }
    }
    return written;
}

ExitCode Outcome(const TestTotals& totals, const ReportOptions& options, Console& console) {
    std::string text = Counted(totals.passed, "test") + " passed, " + std::to_string(totals.failed) + " failed";
    if (totals.full > 0)
        text += ", " + std::to_string(totals.failedAsPlain) + " of them as the plain reading detects";
    console.Message(text);
    if (totals.plainExpectations > 0)
        console.Message(Counted(totals.plainExpectations, "aircraft", "aircraft") +
                        " tested with expectations of the plain reading");
    // An untested expectation is worse than a failed one.
    if (totals.withProblems > 0)
        return kAircraftFailed;
    if (totals.Tests() > 0)
        return totals.failed > 0 ? kTestFailed : kDone;
    console.Message(
        totals.vrConfig > 0
            ? "no tests found: no _vrconfig.txt of these aircraft has a block that tells a type and matches a part"
            : "no tests found: no annotation file of these aircraft in QVRA/Annotations contains an "
              "InteractionTypeTest");
    return options.requireTests ? kTestFailed : kDone;
}

} // namespace

ExitCode PublishReport(const TestReport& report, const ReportOptions& options, Session& session) {
    Print(TableText(report));
    FlushPrinted();
    PrintProblems(report, session.console);
    PrintAircraftWithoutVrConfig(report, session.console);
    const bool written = WriteReports(report, options, session);
    const ExitCode outcome = Outcome(Totals(report), options, session.console);
    return written ? outcome : kNotWritten;
}

} // namespace Batch
