#pragma once

#include "Batch/Console.h"

#include <boost/filesystem/path.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace CLI {
class App;
}

namespace Batch {

/// What the program's exit codes say. Where several hold, the greatest is given.
enum ExitCode : int {
    kDone = 0,
    kTestFailed = 1, ///< or what was compared differs
    kWrongUsage = 2,
    kAircraftFailed = 3, ///< an aircraft could not be loaded or drawn, or not be tested as its annotations have it,
                         ///< or a file or folder to read is missing or not as it has to be
    kNotWritten = 4,     ///< a file or the standard output could not be written
};

/// Ends a command with an exit code and a message.
struct CommandError : std::runtime_error {
    CommandError(ExitCode exitCode, const std::string& message) : std::runtime_error(message), code(exitCode) {}

    ExitCode code;
};

/// What a command gets. The working directory is the installation while it runs.
struct Session {
    Console console;
    boost::filesystem::path startFolder; ///< where the caller stands

    /// A path of the command line, as the caller means it.
    std::string ResolveArgument(const std::string& path) const;
};

using Action = std::function<ExitCode(Session&)>;

/// A command of the program. To add one: a source file with its Prepare function, a line in Commands.h, a row in the
/// table of Program.cpp.
struct Command {
    const char* name;
    const char* description; ///< a line
    const char* help;        ///< what --help tells below the options: more, and examples
    /// Adds the command's options to `app`, which outlives the action, and returns what runs once they are read.
    Action (*prepare)(CLI::App& app);
};

} // namespace Batch
