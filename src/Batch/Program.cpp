#include "Batch/Program.h"

#include "Annotator/FailureTexts.h"
#include "Batch/BatchLog.h"
#include "Batch/Commands.h"
#include "Batch/Usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/filesystem/operations.hpp>
#include <csignal>
#include <iostream>

namespace Batch {

namespace {

constexpr std::array kCommands{
    Command{"list", "Lists the aircraft: path, a tab, name",
            "Example:\n"
            "  vorelle-batch -C X-Plane list | cut -f 1",
            PrepareList},
    Command{"detect", "Writes what detection finds, one XML file per aircraft",
            "Examples:\n"
            "  vorelle-batch -C X-Plane detect --out detected          every aircraft\n"
            "  vorelle-batch -C X-Plane detect --out detected Trainer  one of them",
            PrepareDetect},
    Command{"inspect", "Prints a cockpit's nodes and parts as JSON",
            "Example:\n"
            "  vorelle-batch -C X-Plane inspect Trainer >trainer.json",
            PrepareInspect},
    Command{"render", "Draws a cockpit as the desktop tool shows it, into a PNG file",
            "Puts the program's own files into the installation's folder QVRA first, where they are missing.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane render Trainer --look 0,25 --select 71,0 --out selector.png",
            PrepareRender},
    Command{"explain", "Tells why a part got its type",
            "'manips' lists the parts that can be clicked, 'inspect' all parts.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane explain Trainer 71,0",
            PrepareExplain},
    Command{"lint", "Tells an aircraft's author what is wrong in a cockpit object",
            "Ends with 0 where there is nothing but notes, with 1 for errors or warnings.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane lint Trainer",
            PrepareLint},
    Command{"manips", "Prints a line for each part that can be clicked",
            "Example:\n"
            "  vorelle-batch -C X-Plane manips --csv Trainer >parts.csv",
            PrepareManips},
    Command{"test", "Holds detection against the expectations of the annotation files",
            "Example:\n"
            "  vorelle-batch -C X-Plane test --require-tests --junit tests.xml Trainer",
            PrepareTest},
    Command{"merge", "Makes one report of the JSON reports of several test runs",
            "The report is that of a single run over the same aircraft in the same order. Table, files and exit\n"
            "code are those of 'test'.\n"
            "Example:\n"
            "  vorelle-batch merge --junit tests.xml parts",
            PrepareMerge},
    Command{"accept", "Records what detection finds as the expectations of the annotation files",
            "A part that has a mouse rectangle and no expectation yet gets its detected type as one. What the\n"
            "annotation files hold already stays.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane accept --dry-run Trainer && vorelle-batch -C X-Plane accept Trainer",
            PrepareAccept},
    Command{"compare", "Tells how two folders of detected-data files differ",
            "Tells which parts changed their type, appeared or vanished between two folders that 'detect' wrote,\n"
            "and which files only one of them has. Ends with 1 where they differ.\n"
            "Example:\n"
            "  vorelle-batch compare before after",
            PrepareCompare},
};

constexpr const char* kCompletion = "--completion";
constexpr const char* kAircraft =
    "AIRCRAFT is a path as 'list' prints it, or a part of a path or name that no other aircraft has.\n";
constexpr const char* kExitCodes =
    "Exit codes: 0 done, 1 a test failed, compared files differ or lint warns, 2 wrong usage,\n"
    "3 an aircraft could not be loaded, tested or drawn or a file not be read, 4 a file could not be written.";

std::string Footer(const Command& command, const CLI::App& app) {
    const bool takesAircraft = app.get_option_no_throw("AIRCRAFT") != nullptr;
    return std::string(command.help) + "\n\n" + (takesAircraft ? kAircraft : "") + kExitCodes;
}

/// The options that all commands share, and the action of the chosen one. Only a command that the arguments may name
/// gets its options, as making those of all commands takes longer than listing the aircraft.
struct CommandLine {
    explicit CommandLine(const std::vector<std::string>& words);

    CLI::App app{"Works out how a hand in virtual reality touches the cockpits of an X-Plane installation.",
                 "vorelle-batch"};
    std::string installation = ".";
    bool completion = false;
    Action action;
};

CommandLine::CommandLine(const std::vector<std::string>& words) {
    app.footer("'vorelle-batch COMMAND --help' tells of a command.\n\n" + std::string(kAircraft) + kExitCodes);
    app.set_help_flag("-h,--help", "Prints this and ends");
    app.set_version_flag("--version", "vorelle-batch " VORELLE_VERSION, "Prints the version and ends");
    app.add_option("-C", installation, "The X-Plane installation; the working directory without it")
        ->type_name("DIR")
        ->take_last();
    app.add_flag(kCompletion, completion)->group(""); // read by the shell's completion, not shown by --help
    app.fallthrough();                                // -C may stand behind the command as well
    const auto named = [&words](const std::string& word) { return std::ranges::find(words, word) != words.end(); };
    const bool all = named(kCompletion);
    for (const Command& command : kCommands) {
        CLI::App* subcommand = app.add_subcommand(command.name, command.description);
        if (!all && !named(command.name))
            continue;
        subcommand->callback([this, run = command.prepare(*subcommand)] { action = run; });
        subcommand->footer(Footer(command, *subcommand));
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
    if (const std::optional<std::string> reason = OutputFailure())
        throw CommandError(kNotWritten,
                           "cannot write to the standard output" + (reason->empty() ? "" : ": " + *reason));
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

int Run(std::vector<std::string> words) {
    std::ios::sync_with_stdio(false);
#ifdef SIGPIPE
    // A reader that has seen enough ends the program in silence, also below a program that ignores this signal.
    std::signal(SIGPIPE, SIG_DFL);
#endif
    CommandLine line(words);
    Session session;
    try {
        std::ranges::reverse(words); // as the parser takes them
        line.app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return line.app.exit(error); // help or version
        session.console.Message(UsageText(line.app, error));
        return kWrongUsage;
    }
    if (line.completion) {
        std::cout << CompletionText(line.app) << std::flush;
        return kDone;
    }
    if (!line.action) {
        session.console.Message("a command is required; --help lists them");
        return kWrongUsage;
    }
    return RunAction(line, session);
}

} // namespace Batch
