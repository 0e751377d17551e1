#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Batch {

/// Operating system functions for the program's own process, with one source file per system.

/// Must be called first: prepares the standard streams and returns the arguments as UTF-8, without the program's
/// name and without kWorkerOption.
std::vector<std::string> StartProcess(int argc, char** argv);

/// Whether stderr is a terminal. Afterwards that terminal interprets escape sequences.
bool ErrorsGoToTerminal();

/// Whether this process was started by this program to run jobs. What such a process prints to stdout is discarded.
bool IsWorker();
/// Sends a worker's answer to the process that started it. False if that process no longer reads.
bool SendAnswer(std::string_view bytes);

/// The first argument of a worker. Not documented for users.
inline constexpr const char* kWorkerOption = "--worker";

} // namespace Batch
