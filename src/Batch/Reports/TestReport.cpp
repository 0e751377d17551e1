#include "Batch/Reports/TestReport.h"

#include "Batch/Console.h"
#include "CockpitModel/XPlane/VrConfigFile.h"

#include <algorithm>

namespace Batch {

namespace {

/// Expectations that a message lists at most.
constexpr std::size_t kNamed = 10;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
/// U+FFFE and U+FFFF without their last byte.
constexpr std::string_view kNoncharacters = "\xEF\xBF";

std::string DescribeUnplaced(const std::vector<CockpitModel::AnnotationRecord>& records) {
    std::string text =
        Counted(records.size(), "expectation has", "expectations have") + " no matching part in the cockpit:";
    for (std::size_t i = 0; i < std::min(records.size(), kNamed); ++i)
        text += (i == 0 ? " node " : ", node ") + std::to_string(records[i].NodeId) + " part " +
                std::to_string(records[i].PartId);
    if (records.size() > kNamed)
        text += " and " + std::to_string(records.size() - kNamed) + " more";
    return text;
}

bool IsControl(unsigned char byte) {
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
}

} // namespace

TestTotals Totals(const TestReport& report) {
    TestTotals totals;
    for (const AircraftReport& aircraft : report) {
        totals.passed += aircraft.tests.Passed();
        totals.failed += aircraft.tests.Failed();
        totals.failedAsPlain += aircraft.tests.FailedAsPlain();
        totals.clickable += aircraft.tests.clickable;
        totals.covered += aircraft.tests.covered;
        totals.withProblems += !aircraft.problems.empty();
        totals.full += aircraft.tests.reading == CockpitModel::Reading::Full;
        totals.plainExpectations += aircraft.tests.plainExpectations;
        totals.vrConfig += aircraft.tests.source == Annotator::ExpectationSource::VrConfig;
        totals.withoutVrConfig += LacksVrConfig(aircraft.tests);
    }
    return totals;
}

std::string VrConfigName(const Annotator::AircraftResult& tests) {
    return CockpitModel::VrConfigPath(tests.acfPath).filename().string();
}

std::string NoVrConfigText(const Annotator::AircraftResult& tests) {
    return "no " + VrConfigName(tests);
}

bool LacksVrConfig(const Annotator::AircraftResult& tests) {
    return tests.source == Annotator::ExpectationSource::VrConfig && !tests.hasVrConfig;
}

std::vector<std::string> FindProblems(const Annotator::AircraftResult& tests) {
    std::vector<std::string> problems;
    if (!tests.hasCockpitObject)
        problems.push_back("has annotations but no cockpit object");
    if (!tests.unplaced.empty())
        problems.push_back(DescribeUnplaced(tests.unplaced));
    if (!tests.vrConfigFault.empty())
        problems.push_back(VrConfigName(tests) + " cannot be divided into blocks: " + tests.vrConfigFault);
    return problems;
}

std::string WithoutControls(std::string_view text) {
    std::string kept;
    while (!text.empty()) {
        if (IsControl(static_cast<unsigned char>(text.front()))) {
            kept += kReplacement;
            text.remove_prefix(1);
        } else if (text.starts_with(kNoncharacters) && text.size() > 2 && (text[2] == '\xBE' || text[2] == '\xBF')) {
            kept += kReplacement;
            text.remove_prefix(3);
        } else {
            kept += text.front();
            text.remove_prefix(1);
        }
    }
    return kept;
}

} // namespace Batch
