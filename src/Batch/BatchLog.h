#pragma once

namespace Batch {

/// The program's log, "batch-log.txt" beside the desktop tool's. Aircraft are loaded in processes of their own, which
/// all append to it; the starting process logs nothing, as each of the others would write its queued lines again.

/// Empties the log for this run, unless this process is one for a job of a run.
void BeginLog();
/// Starts the logger of a process that loads an aircraft.
void JoinLog();

} // namespace Batch
