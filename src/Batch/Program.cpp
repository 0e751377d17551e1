#include "Batch/Program.h"

#include "Annotator/FailureTexts.h"
#include "Batch/BatchLog.h"
#include "Batch/Commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <cstring>
#include <iostream>

namespace Batch {

namespace {

constexpr std::array kCommands{
    Command{"list", "Lists the aircraft: path, a tab, name", PrepareList},
    Command{"detect", "Writes what detection finds, one XML file per aircraft", PrepareDetect},
    Command{"inspect", "Prints a cockpit's nodes and parts as JSON", PrepareInspect},
    Command{"render", "Draws a cockpit as the desktop tool shows it, into a PNG file", PrepareRender},
    Command{"explain", "Tells why a part got its type", PrepareExplain},
    Command{"lint", "Tells an aircraft's author what is wrong in a cockpit object", PrepareLint},
    Command{"manips", "Prints a line for each part that can be clicked", PrepareManips},
    Command{"test", "Holds detection against the expectations of the annotation files", PrepareTest},
    Command{"merge", "Makes one report of the JSON reports of several test runs", PrepareMerge},
    Command{"accept", "Records what detection finds as the expectations of the annotation files", PrepareAccept},
    Command{"compare", "Tells how two folders of detected-data files differ", PrepareCompare},
};

constexpr const char* kFooter =
    "AIRCRAFT is a path as 'list' prints it, or a part of a path or name that no other "
    "aircraft has.\nExit codes: 0 done, 1 a test failed or compared files differ, 2 wrong usage, 3 an "
    "aircraft could not\nbe loaded or tested or a file not be read, 4 a file could not be written.";

/// The options that all commands share, and the action of the chosen one.
struct CommandLine {
    CommandLine();

    CLI::App app{"Works out how a hand in virtual reality touches the cockpits of an X-Plane installation.",
                 "vorelle-batch"};
    std::string installation = ".";
    Action action;
};

CommandLine::CommandLine() {
    app.footer(kFooter);
    app.set_version_flag("--version", "vorelle-batch " VORELLE_VERSION);
    app.add_option("-C", installation, "The X-Plane installation; the working directory without it")
        ->type_name("DIR")
        ->take_last();
    app.fallthrough(); // -C may stand behind the command as well
    for (const Command& command : kCommands) {
        CLI::App* subcommand = app.add_subcommand(command.name, command.description);
        subcommand->callback([this, run = command.prepare(*subcommand)] { action = run; });
    }
}

void EnterInstallation(const std::string& folder) {
    boost::system::error_code error;
    boost::filesystem::current_path(folder, error);
    if (error)
        throw CommandError(kWrongUsage, "cannot enter " + folder + ": " + error.message());
}

/// A full disk behind the standard output shows at the latest when its buffer is emptied.
void FlushOutput() {
    errno = 0;
    if (!std::cout.flush())
        throw CommandError(kNotWritten, std::string("cannot write to the standard output") +
                                            (errno != 0 ? std::string(": ") + std::strerror(errno) : ""));
}

ExitCode RunAction(const CommandLine& line, Session& session) {
    try {
        session.startFolder = boost::filesystem::current_path();
        EnterInstallation(line.installation);
        BeginLog();
        const ExitCode code = line.action(session);
        FlushOutput();
        return code;
    } catch (const CommandError& error) {
        session.console.Message(error.what());
        return error.code;
    } catch (const std::exception& error) {
        session.console.Message(Annotator::ReasonText(error));
        return kAircraftFailed;
    }
}

} // namespace

std::string Session::CallersPath(const std::string& path) const {
    return boost::filesystem::absolute(path, startFolder).string();
}

int Run(std::vector<std::string> words) {
    std::ios::sync_with_stdio(false);
    CommandLine line;
    try {
        std::ranges::reverse(words); // as the parser takes them
        line.app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return line.app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    Session session;
    if (!line.action) {
        session.console.Message("a command is required; --help lists them");
        return kWrongUsage;
    }
    return RunAction(line, session);
}

} // namespace Batch
