#pragma once

#include "Annotator/ExpectationCheck.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Batch {

/// What the tests of one annotated aircraft gave. Texts are UTF-8.
struct AircraftReport {
    Annotator::AircraftResult tests;
    std::vector<std::string> problems; ///< in words: what kept expectations of it from being tested
};

/// The annotated aircraft of a run, in list order.
using TestReport = std::vector<AircraftReport>;

struct TestTotals {
    std::size_t passed = 0, failed = 0;
    std::size_t clickable = 0, covered = 0;
    std::size_t withProblems = 0; ///< aircraft

    std::size_t Tests() const { return passed + failed; }
};

TestTotals Totals(const TestReport& report);
/// Every aircraft that has annotations is to have a cockpit object and a part for each expectation.
std::vector<std::string> FindProblems(const Annotator::AircraftResult& tests);

/// One aircraft's report on its way between processes; the form is that of the JSON report.
std::string SerialiseAircraft(const AircraftReport& aircraft);
AircraftReport ParseAircraft(std::string_view json);

/// The table of counts, and the failing parts below it. Aircraft without a test have no row.
std::string TableText(const TestReport& report);

/// The reports as they stand in files; the same bytes for the same results.
std::string JsonReport(const TestReport& report);
/// A JSON report again; any other text throws a Json::exception or runtime_error.
TestReport ParseReport(std::string_view json);
std::string JUnitReport(const TestReport& report); ///< a suite per aircraft, a case per part
std::string CsvReport(const TestReport& report);   ///< a line per expectation, and one per aircraft that failed to load
std::string HtmlReport(const TestReport& report);  ///< one page with all that it needs

/// The text without characters that XML and HTML do not allow, each replaced by the replacement character.
std::string WithoutControls(std::string_view text);

} // namespace Batch
