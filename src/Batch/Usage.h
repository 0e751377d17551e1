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

} // namespace Batch
