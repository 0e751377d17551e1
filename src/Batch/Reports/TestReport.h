#pragma once

#include "Annotator/ExpectationCheck.h"
#include "Rendering/Context.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Batch {

/// Test results of one annotated aircraft. Texts are UTF-8.
struct AircraftReport {
    Annotator::AircraftResult tests;
    std::vector<std::string> problems; ///< why expectations could not be tested
};

/// The size of a failed part's picture, which is at most this many bytes in base 64.
inline constexpr Rendering::Size kTestPicture{320, 200};
inline constexpr std::size_t kTestPictureBytes = 30'000;

/// The annotated aircraft of a run, in list order.
using TestReport = std::vector<AircraftReport>;

struct TestTotals {
    std::size_t passed = 0, failed = 0;
    std::size_t failedAsPlain = 0; ///< of the failed tests
    std::size_t clickable = 0, covered = 0;
    std::size_t withProblems = 0;      ///< aircraft
    std::size_t full = 0;              ///< aircraft tested in the full reading
    std::size_t plainExpectations = 0; ///< of those, aircraft tested with the expectations of the plain reading
    std::size_t vrConfig = 0;          ///< aircraft tested against their _vrconfig.txt, or without that file
    std::size_t withoutVrConfig = 0;   ///< of those, aircraft without that file

    std::size_t Tests() const { return passed + failed; }
};

TestTotals Totals(const TestReport& report);
/// "plane_vrconfig.txt": the file against which the aircraft is tested.
std::string VrConfigName(const Annotator::AircraftResult& tests);
/// "no plane_vrconfig.txt": why nothing is tested if LacksVrConfig.
std::string NoVrConfigText(const Annotator::AircraftResult& tests);
/// Whether the aircraft could have been tested against a _vrconfig.txt, but has none.
bool LacksVrConfig(const Annotator::AircraftResult& tests);
/// An aircraft with annotations must have a cockpit object and a part for each expectation.
std::vector<std::string> FindProblems(const Annotator::AircraftResult& tests);

/// One aircraft's report, sent between processes in the format of the JSON report, which pictures are added to.
std::string SerialiseAircraft(const AircraftReport& aircraft);
AircraftReport ParseAircraft(std::string_view json);

/// The table of counts followed by the failed parts. Aircraft without tests have no row.
std::string TableText(const TestReport& report);

/// The contents of report files; the same bytes for the same results.
std::string JsonReport(const TestReport& report);
/// Reads a JSON report; any other text throws a Json::exception or runtime_error.
TestReport ParseReport(std::string_view json);
std::string JUnitReport(const TestReport& report); ///< one suite per aircraft, one case per part
std::string CsvReport(const TestReport& report);   ///< one line per expectation and per problem
std::string HtmlReport(const TestReport& report);  ///< one self-contained page

/// The text with each character that XML and HTML do not allow replaced by U+FFFD.
std::string WithoutControls(std::string_view text);

} // namespace Batch
