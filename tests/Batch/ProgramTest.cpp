#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Installation;
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
        {"unknown command", {"fly"}, 2, "", "fly"},
        {"unknown option", {"list", "--fast"}, 2, "", "--fast"},
        {"no aircraft to inspect", {"inspect"}, 2, "", "AIRCRAFT"},
        {"no processes", {"detect", "--jobs", "0"}, 2, "", "--jobs"},
        {"no number", {"test", "--jobs", "many"}, 2, "", "--jobs"},
        {"no such folder", {"-C", "nowhere", "list"}, 2, "", "nowhere: No such file or directory"},
        {"no installation", {"list"}, 0, "", "no aircraft below"},
    };
    for (const auto& row : rows) {
        const ProgramResult result = RunBatch(installation, row.arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.name;
        EXPECT_THAT(result.output, HasSubstr(row.output)) << row.name;
        EXPECT_THAT(result.errors, HasSubstr(row.errors)) << row.name;
        EXPECT_EQ(result.errors.empty(), std::string(row.errors).empty()) << row.name << ": " << result.errors;
    }
}

TEST(Program, ListsPathsAndNames) {
    const Installation installation;
    const std::string acfPath = installation.Aircraft("Aircraft/Props/Bird", "Blue \t Bird  II");
    EXPECT_EQ(RunBatch(installation, {"list"}).output, acfPath + "\tBlue Bird II\n");
    EXPECT_EQ(RunBatch(installation, {"list", "-C", "."}).output, acfPath + "\tBlue Bird II\n");

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
