#pragma once

namespace Batch {

/// The program's log, "batch-log.txt" in the folder of the desktop tool's log. Each aircraft is loaded in a separate
/// process that appends to it. The parent process logs nothing, because every child would write its queued lines again.

/// Empties the log for this run, unless this process was started for one job.
void BeginLog();
/// Starts the logger of a process that loads an aircraft.
void JoinLog();

} // namespace Batch
