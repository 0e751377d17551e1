#pragma once

#include "Batch/Command.h"
#include "Batch/Reports/TestReport.h"

#include <array>
#include <string>

namespace Batch {

/// What a person asks of a test report: a file for each form, and whether a run without a test is a failure.
struct ReportOptions {
    std::array<std::string, 4> files; ///< by form; empty where it was not asked for
    bool requireTests = false;
};

void AddReportOptions(CLI::App& app, ReportOptions& options);

/// Prints the table, tells the problems, writes the files that were asked for, and says how the tests came out.
ExitCode PublishReport(const TestReport& report, const ReportOptions& options, Session& session);

} // namespace Batch
