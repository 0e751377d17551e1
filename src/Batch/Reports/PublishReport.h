#pragma once

#include "Batch/Command.h"
#include "Batch/Reports/ReportOptions.h"

namespace Batch {

/// Prints the table, tells the problems, writes the files that were asked for, and says how the tests came out.
ExitCode PublishReport(const TestReport& report, const ReportOptions& options, Session& session);

} // namespace Batch
