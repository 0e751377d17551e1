#pragma once

#include "Sim/AircraftInfo.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Annotator {

enum class LintSeverity { Note, Warning, Error };

/// What an aircraft's author would want to know of a cockpit object.
struct LintFinding {
    LintSeverity severity = LintSeverity::Warning;
    std::string check; ///< name of the kind, for machines
    std::string file;
    std::uint32_t line = 0; ///< 0 where it is about the file as a whole
    std::string wrong;      ///< what is wrong
    std::string mend;       ///< what to do
};

const char* LintSeverityText(LintSeverity severity);

/// The findings in the text of a cockpit object, the worst first, and by line.
std::vector<LintFinding> LintObject(const std::string& file, std::string_view text);

/// The findings of an aircraft: those of its cockpit object, of the files around it, of its yokes and of its annotation
/// file. An aircraft that cannot be read throws.
std::vector<LintFinding> LintAircraft(const Sim::AircraftInfo& info);

} // namespace Annotator
