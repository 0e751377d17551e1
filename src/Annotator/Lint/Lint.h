#pragma once

#include "CockpitModel/Reading.h"
#include "Sim/AircraftInfo.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

enum class LintSeverity { Note, Warning, Error };

/// A possible mistake in an object of an aircraft, in a file used by it or in its annotations.
struct LintFinding {
    LintSeverity severity = LintSeverity::Warning;
    std::string check; ///< identifier of the check
    std::string file;
    std::uint32_t line = 0; ///< 0 if it is about the whole file
    std::string message;
    std::string fix; ///< what to do about it
};

const char* LintSeverityText(LintSeverity severity);
LintSeverity LintSeverityFromText(std::string_view text);

/// Most severe first, then by file and line; objects come before annotations.
void SortFindings(std::vector<LintFinding>& findings);

/// The findings in the text of a cockpit object, most severe first, then by line.
std::vector<LintFinding> LintObject(const std::string& file, std::string_view text,
                                    CockpitModel::Reading reading = CockpitModel::Reading::Plain);

/// The findings of an aircraft: in its cockpit object, the files around it, its yokes and its annotation file; in the
/// full reading also in its attached objects. Throws if the aircraft cannot be read.
std::vector<LintFinding> LintAircraft(const Sim::AircraftInfo& info,
                                      CockpitModel::Reading reading = CockpitModel::Reading::Plain);

} // namespace Annotator
