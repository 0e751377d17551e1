#pragma once

#include "Batch/Reports/TestReport.h"

#include <array>
#include <string>

namespace CLI {
class App;
}

namespace Batch {

/// A report that the program can write, and the option that asks for it.
struct ReportForm {
    const char* option;
    const char* description;
    std::string (*make)(const TestReport& report);
};

inline constexpr std::array kReportForms{
    ReportForm{"--junit", "Writes the results as JUnit XML, a suite per aircraft", JUnitReport},
    ReportForm{"--json", "Writes the results as JSON", JsonReport},
    ReportForm{"--csv", "Writes the results as a table for a spreadsheet", CsvReport},
    ReportForm{"--html", "Writes the results as one page for a browser", HtmlReport},
};

/// What a person asks of a test report: a file for each form, and whether a run without a test is a failure.
struct ReportOptions {
    std::array<std::string, kReportForms.size()> files; ///< by form; empty where it was not asked for
    bool requireTests = false;
};

void AddReportOptions(CLI::App& app, ReportOptions& options);

} // namespace Batch
