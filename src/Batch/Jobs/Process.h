#pragma once

#include <string>
#include <vector>

namespace Batch {

/// Operating system functions for the program's own process, with one source file per system.

/// Must be called first: prepares the standard streams and returns the arguments as UTF-8, without the program's
/// name.
std::vector<std::string> StartProcess(int argc, char** argv);

/// Whether stderr is a terminal. Afterwards that terminal interprets escape sequences.
bool ErrorsGoToTerminal();

/// The aircraft path of the job if this process was started by this program for one job; otherwise null. Such a process
/// may only send its result: anything it prints is discarded.
const std::string* JobAircraft();

/// The first argument of such a process, before that path. Not documented for users.
inline constexpr const char* kJobOption = "--job";

} // namespace Batch
