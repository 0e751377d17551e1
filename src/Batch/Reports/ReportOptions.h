#pragma once

#include "Batch/Command.h"
#include "Batch/Reports/TestReport.h"

#include <array>
#include <string>

namespace Batch {

/// Options of a test report: a file per format, and whether a run without tests fails.
struct ReportOptions {
    std::array<std::string, 4> files; ///< by format; empty if not requested
    bool requireTests = false;
};

void AddReportOptions(CLI::App& app, ReportOptions& options);

/// Prints the table and the problems, writes the requested files and prints the outcome.
ExitCode PublishReport(const TestReport& report, const ReportOptions& options, Session& session);

} // namespace Batch
