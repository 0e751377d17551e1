#pragma once

namespace Batch {

/// The program's log, "batch-log.txt" in the folder of the desktop tool's log. Only workers load aircraft and log; each
/// appends the lines of one aircraft after the other.

/// Empties the log for this run, unless this process is a worker.
void BeginLog();
/// Starts the logger of a worker for an aircraft. Logger::Stop writes its lines.
void JoinLog();

} // namespace Batch
