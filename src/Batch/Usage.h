#pragma once

#include <string>

namespace CLI {
class App;
class Error;
} // namespace CLI

namespace Batch {

/// What is wrong with a command line that could not be read, in a sentence or two: which word, in which command, what
/// may have been meant and where to read on.
std::string UsageText(const CLI::App& app, const CLI::Error& error);

/// The command line for shell completion, one line each with three fields between tabs: the command, empty for options
/// of the program itself; an option or argument, empty for the command's own line; the kind of its value, empty for a
/// flag.
std::string CompletionText(const CLI::App& app);

} // namespace Batch
