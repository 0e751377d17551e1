#include "Batch/Program.h"

#include "Annotator/FailureTexts.h"
#include "Batch/BatchLog.h"
#include "Batch/Commands.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Jobs/Process.h"
#include "Batch/Usage.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/filesystem/operations.hpp>
#include <csignal>
#include <iostream>

namespace Batch {

namespace {

constexpr std::array kVrConfigCommands{
    Command{"check", "Check the VR configurations of aircraft against their cockpits",
            "The exit code is 0 if there are only notes, 1 for errors or warnings.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane vrconfig check Trainer",
            PrepareVrConfigCheck},
    Command{
        "write", "Write the VR configuration of an aircraft",
        "Makes hotspots from the pilot's eye and the yokes, a block for each knob, and one for each yoke that turns.\n"
        "The types that the annotation file of the full reading sets count. An existing file is only changed with\n"
        "--merge or --force.\n"
        "Examples:\n"
        "  vorelle-batch -C X-Plane vrconfig write Trainer\n"
        "  vorelle-batch -C X-Plane vrconfig write --merge --out - Trainer",
        PrepareVrConfigWrite},
};

constexpr std::array kCommands{
    Command{"list", "List the aircraft: path, tab, name",
            "Example:\n"
            "  vorelle-batch -C X-Plane list | cut -f 1",
            PrepareList},
    Command{"detect", "Write the detected types, one XML file per aircraft",
            "Examples:\n"
            "  vorelle-batch -C X-Plane detect --out detected          all aircraft\n"
            "  vorelle-batch -C X-Plane detect --out detected Trainer  one aircraft",
            PrepareDetect},
    Command{"inspect", "Print a cockpit's nodes and parts as JSON",
            "Example:\n"
            "  vorelle-batch -C X-Plane inspect Trainer >trainer.json",
            PrepareInspect},
    Command{"render", "Draw a cockpit into a PNG file, as the desktop tool shows it",
            "Data files missing from the installation's folder QVRA are read from the program's own folder.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane render Trainer --look 0,25 --select 71,0 --out selector.png",
            PrepareRender},
    Command{"explain", "Explain why a part has its type",
            "'manips' lists the clickable parts, 'inspect' lists all parts.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane explain Trainer 71,0",
            PrepareExplain},
    Command{"lint", "Check cockpit objects and annotations for mistakes",
            "The exit code is 0 if there are only notes, 1 for errors or warnings.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane lint Trainer",
            PrepareLint},
    Command{"manips", "Print one line per clickable part",
            "Example:\n"
            "  vorelle-batch -C X-Plane manips --csv Trainer >parts.csv",
            PrepareManips},
    Command{"test", "Test detection against the expectations in the annotation files",
            "Example:\n"
            "  vorelle-batch -C X-Plane test --require-tests --junit tests.xml Trainer",
            PrepareTest},
    Command{"merge", "Merge the JSON reports of several test runs into one report",
            "The result is the report of a single run over the same aircraft in the same order. Table, files and\n"
            "exit code are the same as those of 'test'.\n"
            "Example:\n"
            "  vorelle-batch merge --junit tests.xml parts",
            PrepareMerge},
    Command{"accept", "Record detected types as expectations in the annotation files",
            "Parts that have a mouse rectangle and no expectation get their detected type as expectation. Existing\n"
            "content of the annotation files is kept.\n"
            "Example:\n"
            "  vorelle-batch -C X-Plane accept --dry-run Trainer && vorelle-batch -C X-Plane accept Trainer",
            PrepareAccept},
    Command{"compare", "Compare two folders of detected-data files",
            "Prints which parts changed, appeared or vanished between two folders written by 'detect', and which\n"
            "files are in only one of them. The exit code is 1 if they differ.\n"
            "Example:\n"
            "  vorelle-batch compare before after",
            PrepareCompare},
    Command{
        "vrconfig", "Check or write the VR configurations of aircraft",
        "The VR configuration, <name>_vrconfig.txt beside <name>.acf, tells X-Plane where the user sits in VR and how\n"
        "a hand moves the controls.\n"
        "Run 'vorelle-batch vrconfig COMMAND --help' for details of a command.",
        nullptr, [] { return std::span<const Command>(kVrConfigCommands); }},
};

constexpr const char* kCompletion = "--completion";
constexpr const char* kAircraft =
    "AIRCRAFT is a path printed by 'list', or a part of a path or name that matches only one aircraft.\n";
constexpr const char* kExitCodes =
    "Exit codes: 0 success; 1 a test failed, compared files differ, or lint or vrconfig found errors or\n"
    "warnings; 2 wrong usage; 3 an aircraft could not be loaded, tested or drawn, or a file could not be read;\n"
    "4 a file could not be written.";

std::string Footer(const Command& command, const CLI::App& app) {
    const bool takesAircraft = app.get_option_no_throw("AIRCRAFT") != nullptr;
    return std::string(command.help) + "\n\n" + (takesAircraft ? kAircraft : "") + kExitCodes;
}

/// The options that all commands share, and the action of the chosen command. Only commands named by the arguments get
/// their options, because creating those of all commands takes longer than listing the aircraft.
struct CommandLine {
    explicit CommandLine(const std::vector<std::string>& arguments);
    void AddCommands(CLI::App& parent, std::span<const Command> commands, const std::vector<std::string>& arguments);

    CLI::App app{"Detects how a hand in virtual reality touches the cockpits of an X-Plane installation.",
                 "vorelle-batch"};
    std::string installation = ".";
    bool completion = false;
    Action action;
};

CommandLine::CommandLine(const std::vector<std::string>& arguments) {
    app.footer("Run 'vorelle-batch COMMAND --help' for details of a command.\n\n" + std::string(kAircraft) +
               kExitCodes);
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", "vorelle-batch " VORELLE_VERSION, "Print the version and exit");
    app.add_option("-C", installation, "X-Plane installation (default: the working directory)")
        ->type_name("DIR")
        ->take_last();
    app.add_flag(kCompletion, completion)->group(""); // for shell completion, not shown by --help
    app.fallthrough();                                // -C may also follow the command
    AddCommands(app, kCommands, arguments);
}

/// Adds the commands below `parent`.
void CommandLine::AddCommands(CLI::App& parent, std::span<const Command> commands,
                              const std::vector<std::string>& arguments) {
    const auto named = [&](const std::string& name) { return std::ranges::find(arguments, name) != arguments.end(); };
    const bool all = named(kCompletion);
    for (const Command& command : commands) {
        CLI::App* subcommand = parent.add_subcommand(command.name, command.description);
        if (!all && !named(command.name))
            continue;
        if (command.subcommands)
            AddCommands(*subcommand, command.subcommands(), arguments);
        else
            subcommand->callback([this, run = command.prepare(*subcommand)] { action = run; });
        subcommand->footer(Footer(command, *subcommand));
    }
}

void EnterInstallation(const std::string& folder) {
    boost::system::error_code error;
    boost::filesystem::current_path(folder, error);
    if (error)
        throw CommandError(kWrongUsage, "cannot open the folder " + folder + ": " + error.message());
}

/// A full disk is reported at the latest when the buffer of stdout is flushed.
void FlushOutput() {
    if (const std::optional<std::string> reason = OutputFailure())
        throw CommandError(kNotWritten, "cannot write to stdout" + (reason->empty() ? "" : ": " + *reason));
}

int RunAction(const CommandLine& line, Session& session) {
    try {
        session.startFolder = boost::filesystem::current_path();
        EnterInstallation(line.installation);
        BeginLog();
        if (IsWorker())
            return ServeJobs(line.action.job);
        const ExitCode code = line.action.run(session);
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

int Run(std::vector<std::string> arguments) {
    std::ios::sync_with_stdio(false);
#ifdef SIGPIPE
    // A closed pipe ends the program silently, even if the parent ignores this signal.
    std::signal(SIGPIPE, SIG_DFL);
#endif
    CommandLine line(arguments);
    Session session;
    try {
        std::ranges::reverse(arguments); // the parser expects them in reverse order
        line.app.parse(std::move(arguments));
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
    if (!line.action.run) {
        session.console.Message("a command is required; run '" + CommandPath(line.app) + " --help' for a list");
        return kWrongUsage;
    }
    return RunAction(line, session);
}

} // namespace Batch
