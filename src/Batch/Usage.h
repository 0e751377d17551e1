#pragma once

#include <string>

namespace CLI {
class App;
class Error;
} // namespace CLI

namespace Batch {

/// Describes the error in a command line that could not be parsed: the argument, the command, a suggestion and the help
/// to run.
std::string UsageText(const CLI::App& app, const CLI::Error& error);

/// The words that lead to the command that was parsed: "vorelle-batch vrconfig check".
std::string CommandPath(const CLI::App& app);

/// The command line for shell completion: lines with three tab-separated fields. The first is the command, empty for
/// options of the program itself, "vrconfig check" for a command below another; the second an option or argument, empty
/// for the command's own line; the third the kind of its value, empty for a flag.
std::string CompletionText(const CLI::App& app);

} // namespace Batch
