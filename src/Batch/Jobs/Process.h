#pragma once

#include <string>
#include <vector>

namespace Batch {

/// What the program asks of the operating system for its own process; each system has a source file of its own.

/// To be called first of all: prepares the standard streams, and gives the words of the command line as UTF-8 without
/// the program's name.
std::vector<std::string> StartProcess(int argc, char** argv);

/// Whether the standard error stream goes to a terminal. Such a terminal takes escape sequences afterwards.
bool ErrorsGoToTerminal();

/// In a process that another one of this program started for one job, the path of the job's aircraft; else null. All
/// that such a process may say is its answer, so that what it prints goes nowhere.
const std::string* JobAircraft();

/// Ahead of that path on the command line of such a process, as its first word. People are not told of it.
inline constexpr const char* kJobOption = "--job";

} // namespace Batch
