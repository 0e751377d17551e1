#pragma once

#include "Batch/Command.h"
#include "Batch/Reports/ReportOptions.h"

namespace Batch {

/// Prints the table and the problems, writes the requested files and prints the outcome.
ExitCode PublishReport(const TestReport& report, const ReportOptions& options, Session& session);

} // namespace Batch
