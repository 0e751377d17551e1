#include "Batch/BatchProgram.h"

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(Program, TellsUsageFromHelp) {
    const Installation installation;
    const struct {
        const char* name;
        std::vector<std::string> arguments;
        int exitCode;
        const char* output;
        const char* errors;
    } rows[] = {
        {"help", {"--help"}, 0, "Usage: vorelle-batch", ""},
        {"help of a command", {"detect", "--help"}, 0, "--jobs", ""},
        {"version", {"--version"}, 0, "vorelle-batch 1", ""},
        {"no command", {}, 2, "", "required"},
        {"unknown command", {"fly"}, 2, "", "there is no command 'fly'\n'vorelle-batch --help'"},
        {"two letters wrong", {"lits"}, 2, "", "there is no command 'lits'; did you mean 'list'?"},
        {"unknown option", {"list", "--fast"}, 2, "", "list: there is no option --fast\n'vorelle-batch list --help'"},
        {"a letter short", {"detect", "--job=3"}, 2, "", "there is no option --job=3; did you mean '--jobs'?"},
        {"the beginning of an option", {"detect", "--un"}, 2, "", "did you mean '--untextured'?"},
        {"a word too many", {"explain", "Vorelle", "Trainer", "1,0"}, 2, "", "explain: '1,0' is one word too many"},
        {"no aircraft to inspect", {"inspect"}, 2, "", "inspect: AIRCRAFT is required"},
        {"no processes", {"detect", "--jobs", "0"}, 2, "", "detect: --jobs: Value 0 not in range 1 to 1024"},
        {"no number", {"test", "--jobs", "many"}, 2, "", "test: --jobs: "},
        {"no such folder", {"-C", "nowhere", "list"}, 2, "", "nowhere: No such file or directory"},
        {"no installation", {"lint"}, 2, "", "is no X-Plane installation: there is no folder Aircraft in it"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = RunBatch(installation, row.arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.name;
        EXPECT_THAT(result.output, HasSubstr(row.output)) << row.name;
        EXPECT_THAT(result.errors, HasSubstr(row.errors)) << row.name;
        EXPECT_EQ(result.errors.empty(), std::string(row.errors).empty()) << row.name << ": " << result.errors;
    }
}

TEST(Program, EndsInSilenceWhenNobodyReadsOn) {
    const Installation installation;
    ObjText object = ObjText().Texture();
    for (int i = 0; i < 300; ++i) // more JSON than a pipe holds
        object.Tris();
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object);
    const std::string line = "trap '' PIPE; { \"$0\" inspect Cub; echo $? >&2; } | head -c 1";
    const ProgramResult result =
        Support::Program({"/bin/sh", "-c", line, VORELLE_BATCH_PROGRAM}, installation.path.string()).Wait();
    EXPECT_EQ(result.output, "{");
    EXPECT_EQ(result.errors, "141\n") << "as a shell tells that a closed pipe has ended a program";
}

TEST(Program, ListsPathsAndNames) {
    const Installation installation;
    const std::string acfPath = installation.Aircraft("Aircraft/Props/Bird", "Blue \t Bird  II");
    EXPECT_EQ(RunBatch(installation, {"list"}).output, acfPath + "\tBlue Bird II\n");
    EXPECT_EQ(RunBatch(installation, {"list", "-C", "."}).output, acfPath + "\tBlue Bird II\n");

    // In the order in which the system lists the folders.
    std::string expected;
    for (const char* folder : {"Aircraft/Z/A", "Aircraft/A/Z", "Aircraft/A/A"})
        installation.Aircraft(folder, "x");
    for (const auto& group : boost::filesystem::directory_iterator(installation / "Aircraft"))
        for (const auto& aircraft : boost::filesystem::directory_iterator(group))
            expected += "Aircraft/" + group.path().filename().string() + "/" + aircraft.path().filename().string() +
                        "/plane.acf\t" + (group.path().filename() == "Props" ? "Blue Bird II\n" : "x\n");
    EXPECT_EQ(RunBatch(installation, {"list"}).output, expected);

    const Installation latin;
    latin.Aircraft("Aircraft/Props/Bird", "Fl\xE4mmchen");
    EXPECT_EQ(RunBatch(latin, {"list"}).output, "Aircraft/Props/Bird/plane.acf\tFl\xEF\xBF\xBDmmchen\n");
}

TEST(Program, SaysThatItsOutputCannotBeWritten) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Bird", "Bird");
    const ProgramResult result = Support::Program(BatchWords({"list"}), installation.path.string(), "/dev/full").Wait();
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("No space left on device"));
}

TEST(Program, NamesAnInstallationThatCannotBeScanned) {
    const Installation installation;
    installation.Write("Aircraft", "a file");
    const ProgramResult result = RunBatch(installation, {"list"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.errors, HasSubstr("Aircraft: Not a directory"));
}

TEST(Program, TakesAWordForTheOneAircraftThatItMeans) {
    const Installation installation;
    const std::string cub = installation.Aircraft("Aircraft/Props/Cub", "Carbon", ThreeParts());
    installation.Aircraft("Aircraft/Props/Copy", "Copy of " + cub);
    installation.Aircraft("Aircraft/Props/Super", "Carbon Two", ThreeParts());
    const struct {
        const char* name;
        std::string word;
        const char* found; ///< displayName, or null for a usage error
        std::vector<const char*> offered;
    } rows[] = {
        {"whole path", cub, "\"Carbon\"", {}},
        {"part of a name in another case", "bon TWO", "\"Carbon Two\"", {}},
        {"part of a path", "props/sup", "\"Carbon Two\"", {}},
        {"several", "Carbon", nullptr, {"several", "Carbon (", "Carbon Two ("}},
        {"none", "Boeing", nullptr, {"means no aircraft", "Carbon (", "Carbon Two ("}},
        {"empty", "", nullptr, {"means no aircraft"}},
    };
    for (const auto& row : rows) {
        const ProgramResult result = RunBatch(installation, {"inspect", row.word});
        EXPECT_EQ(result.exitCode, row.found ? 0 : 2) << row.name << result.errors;
        EXPECT_THAT(result.output, row.found ? HasSubstr(std::string("\"displayName\": ") + row.found) : HasSubstr(""))
            << row.name;
        for (const char* offered : row.offered)
            EXPECT_THAT(result.errors, HasSubstr(offered)) << row.name;
    }
}

} // namespace
} // namespace Batch
