#include "Batch/BatchProgram.h"

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Program, PrintsHelpAndUsageErrors) {
    const Installation installation;
    const struct {
        std::vector<std::string> arguments;
        int exitCode;
        const char* output;
        const char* errors;
    } rows[] = {
        {{"--help"}, 0, "Usage: vorelle-batch", ""},
        {{"--version"}, 0, "vorelle-batch 1", ""},
        {{"lits"}, 2, "", "unknown command 'lits'; did you mean 'list'?"},
        {{"list", "--fast"}, 2, "", "list: unknown option --fast\nRun 'vorelle-batch list --help'"},
        {{"detect", "--job=3"}, 2, "", "unknown option --job=3; did you mean '--jobs'?"},
        {{"explain", "Vorelle", "Trainer", "1,0"}, 2, "", "explain: unexpected argument '1,0'"},
        {{"inspect"}, 2, "", "inspect: AIRCRAFT is required"},
        {{"vrconfig"}, 2, "", "a command is required; run 'vorelle-batch vrconfig --help' for a list"},
        {{"vrconfig", "chek"}, 2, "", "vrconfig: unknown command 'chek'; did you mean 'check'?"},
        {{"vrconfig", "check", "--jsn"}, 2, "", "vrconfig check: unknown option --jsn; did you mean '--json'?"},
        {{"detect", "--jobs", "0"}, 2, "", "detect: --jobs: '0' is not a number from 1 to 1024"},
        {{"-C", "nowhere", "list"}, 2, "", "nowhere: No such file or directory"},
        {{"lint"}, 2, "", "is not an X-Plane installation: it has no folder Aircraft"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = RunBatch(installation, row.arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.errors;
        EXPECT_THAT(result.output, HasSubstr(row.output));
        EXPECT_THAT(result.errors, HasSubstr(row.errors));
        EXPECT_EQ(result.errors.empty(), std::string(row.errors).empty()) << result.errors;
    }
}

TEST(Program, SuggestsUntexturedIfAPartHasNoTexture) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    installation.Annotations("Piper", Support::Expectation(0, 0, "None"));
    for (const char* command : {"detect", "inspect", "explain", "manips", "test", "accept"}) {
        std::vector<std::string> arguments{command, "Piper"};
        if (arguments[0] == "explain")
            arguments.push_back("0,0");
        const ProgramResult refused = RunBatch(installation, arguments);
        EXPECT_EQ(refused.exitCode, 3) << command;
        EXPECT_THAT(refused.errors, HasSubstr("; use --untextured to load it with a plain material\n")) << command;
        arguments.push_back("--untextured");
        EXPECT_EQ(RunBatch(installation, arguments).exitCode, 0) << command;
    }
}

TEST(Program, RemovesTheLogOfTheRunBeforeAndFailsInARemovedFolder) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    const std::string line =
        "log=$XDG_DATA_HOME/Vorelle/batch-log.txt; \"$0\" manips Cub >/dev/null; test -s $log || exit 9;"
        "\"$0\" list >/dev/null; test -e $log && exit 8; mkdir d; cd d; rmdir ../d; exec \"$0\" list";
    EXPECT_EQ(
        Support::Program({"/bin/sh", "-c", line, VORELLE_BATCH_PROGRAM}, installation.path.string()).Wait().exitCode,
        3);
}

TEST(Program, EndsSilentlyWhenItsOutputIsClosed) {
    const Installation installation;
    ObjText object = ObjText().Texture();
    for (int i = 0; i < 300; ++i) // more JSON than a pipe holds
        object.Tris();
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object);
    const std::string line = "trap '' PIPE; { \"$0\" inspect Cub; echo $? >&2; } | head -c 1";
    const ProgramResult result =
        Support::Program({"/bin/sh", "-c", line, VORELLE_BATCH_PROGRAM}, installation.path.string()).Wait();
    EXPECT_EQ(result.output, "{");
    EXPECT_EQ(result.errors, "141\n") << "the exit code of a program ended by a closed pipe";
    const ProgramResult full =
        Support::Program(BatchWords({"inspect", "Cub"}), installation.path.string(), "/dev/full").Wait();
    EXPECT_EQ(full.exitCode, 4);
    EXPECT_THAT(full.errors, HasSubstr("No space left on device"));
}

TEST(Program, ListsPathsAndNamesInTheOrderOfTheSystemsLists) {
    const Installation installation;
    for (const char* folder : {"Aircraft/Z/A", "Aircraft/A/Z", "Aircraft/A/A"})
        installation.Aircraft(folder, "Blue \t Bird\x1B[2J\xC2\x9B  Fl\xE4mmchen");
    std::string expected;
    for (const auto& group : boost::filesystem::directory_iterator(installation / "Aircraft"))
        for (const auto& aircraft : boost::filesystem::directory_iterator(group))
            expected += "Aircraft/" + group.path().filename().string() + "/" + aircraft.path().filename().string() +
                        "/plane.acf\tBlue Bird\\x1b[2J\\x9b Fl\xEF\xBF\xBDmmchen\n";
    EXPECT_EQ(RunBatch(installation, {"list"}).output, expected);
    EXPECT_EQ(RunBatch(installation, {"list", "-C", "."}).output, expected);

    boost::filesystem::remove_all(installation / "Aircraft");
    installation.Write("Aircraft", "a file");
    const ProgramResult unlisted = RunBatch(installation, {"list"});
    EXPECT_EQ(unlisted.exitCode, 3);
    EXPECT_THAT(unlisted.errors, HasSubstr("Aircraft: Not a directory"));
}

TEST(Program, SelectsTheOnlyAircraftThatANameMatches) {
    const Installation installation;
    const std::string cub = installation.Aircraft("Aircraft/Props/Cub", "Carbon", ThreeParts());
    installation.Aircraft("Aircraft/Props/Copy", "Copy of " + cub);
    installation.Aircraft("Aircraft/Props/Super", "Carbon Two", ThreeParts());
    // The complete path, a part of a name in other case, a part of a path.
    for (const auto& [argument, name] :
         {std::pair(cub, "Carbon"), {"bon TWO", "Carbon Two"}, {"props/sup", "Carbon Two"}})
        EXPECT_THAT(RunBatch(installation, {"explain", argument, "0,0"}).output, StartsWith(std::string(name) + " ("));
    for (const auto& [argument, fault] : {std::pair("Carbon", "several"), {"Boeing", "no aircraft matches"}}) {
        const ProgramResult result = RunBatch(installation, {"explain", argument, "0,0"});
        EXPECT_EQ(result.exitCode, 2) << argument;
        for (const char* text : {fault, "Carbon (", "Carbon Two ("})
            EXPECT_THAT(result.errors, HasSubstr(text)) << argument;
    }
    for (const char* part : {"0,2", "9,0", "0", "0,-1", "0,0x", "0,0,0"})
        EXPECT_EQ(RunBatch(installation, {"explain", cub, part}).exitCode, 2) << part;
}

} // namespace
} // namespace Batch
