#pragma once

#include "Annotator/Lint/Lint.h"
#include "Batch/AircraftOptions.h"
#include "Batch/Command.h"

#include <string>
#include <vector>

namespace Batch {

/// The options of commands that print findings.
struct FindingsOptions {
    bool json = false, all = false;
    AircraftOptions aircraft;
};

/// Adds --all and --json.
void AddFindingsOptions(CLI::App& app, FindingsOptions& options);

/// What the job of such a command returns for an aircraft, for ReportFindings in the parent process.
std::string SerialiseFindings(const std::vector<Annotator::LintFinding>& findings);

/// Runs the command's job for the selected aircraft, prints the findings and their number, and returns the exit code: 1
/// for errors or warnings.
ExitCode ReportFindings(const FindingsOptions& options, Session& session);

} // namespace Batch
