#pragma once

#include "Batch/Reports/TestReport.h"

#include <array>
#include <string>

namespace CLI {
class App;
}

namespace Batch {

/// A report format and its option.
struct ReportForm {
    const char* option;
    const char* description;
    std::string (*make)(const TestReport& report);
};

inline constexpr std::array kReportForms{
    ReportForm{"--junit", "Write the results as JUnit XML, one suite per aircraft", JUnitReport},
    ReportForm{"--json", "Write the results as JSON", JsonReport},
    ReportForm{"--csv", "Write the results as a table for spreadsheets", CsvReport},
    ReportForm{"--html", "Write the results as an HTML page", HtmlReport},
};

/// Options of a test report: a file per format, and whether a run without tests fails.
struct ReportOptions {
    std::array<std::string, kReportForms.size()> files; ///< by format; empty if not requested
    bool requireTests = false;
};

void AddReportOptions(CLI::App& app, ReportOptions& options);

} // namespace Batch
