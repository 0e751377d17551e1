#pragma once

#include "Batch/Console.h"
#include "Batch/Jobs/Job.h"

#include <boost/filesystem/path.hpp>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>

namespace CLI {
class App;
}

namespace Batch {

/// The program's exit codes. If several apply, the greatest is returned.
enum ExitCode : int {
    kDone = 0,
    kTestFailed = 1, ///< or compared files differ
    kWrongUsage = 2,
    kAircraftFailed = 3, ///< an aircraft could not be loaded, drawn or tested against its annotations, or an input
                         ///< file or folder is missing or invalid
    kNotWritten = 4,     ///< a file or stdout could not be written
};

/// Ends a command with an exit code and a message.
struct CommandError : std::runtime_error {
    CommandError(ExitCode exitCode, const std::string& message) : std::runtime_error(message), code(exitCode) {}

    ExitCode code;
};

/// The context of a command. The working directory is the installation while it runs.
struct Session {
    Console console;
    boost::filesystem::path startFolder; ///< the caller's working directory

    /// A path argument, relative to the caller's working directory.
    std::string ResolveArgument(const std::string& path) const;
};

/// What a command does.
struct Action {
    std::function<ExitCode(Session&)> run;
    /// What its workers do for each aircraft of RunJobs; null if it starts none. Nothing of `run` happens in a worker.
    Job job = nullptr;
};

/// A command of the program. To add one: a source file with its Prepare function, a line in Commands.h, a row in a
/// table of Program.cpp.
struct Command {
    const char* name;
    const char* description; ///< one line
    const char* help;        ///< printed by --help below the options: details and examples
    /// Adds the command's options to `app`, which outlives the action, and returns the action to run after parsing.
    /// Null for a command that has subcommands.
    Action (*prepare)(CLI::App& app);
    std::span<const Command> (*subcommands)() = nullptr;
};

} // namespace Batch
