#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using Support::Expectation;
using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(TestCommand, TellsOutcomesByItsExitCode) {
    const struct {
        const char* name;
        std::string overrides; ///< of an aircraft that loads; none without
        const char* broken;    ///< display name of one that does not do, or null
        std::vector<std::string> arguments;
        int exitCode;
        const char* errors;
    } rows[] = {
        {"all pass", Expectation(0, 1, "Tap"), nullptr, {}, 0, "1 test passed, 0 failed"},
        {"one fails", Expectation(0, 1, "Move"), nullptr, {}, 1, "0 tests passed, 1 failed"},
        {"no test", "", nullptr, {}, 0, "no test found"},
        {"no test where one has to be", "", nullptr, {"--require-tests"}, 1, "no test found"},
        {"tests where one has to be", Expectation(0, 1, "Tap"), nullptr, {"--require-tests"}, 0, "1 test passed"},
        {"no part there",
         Expectation(9, 2, "Tap"),
         nullptr,
         {},
         3,
         "Cub (Aircraft/Props/Cub/plane.acf): 1 of its expectations fit no part of the cockpit: node 9 part 2"},
        {"no part there and one fails",
         Expectation(9, 2, "Tap") + Expectation(0, 0, "Tap"),
         nullptr,
         {},
         3,
         "1 failed"},
        {"does not load", Expectation(0, 1, "Tap"), "NoMaterial", {}, 3, "plane_cockpit.obj(11): TRIS before any"},
        {"has no cockpit", Expectation(0, 1, "Move"), "NoObject", {}, 3, "annotations but no cockpit object"},
        {"not chosen", Expectation(0, 1, "Tap"), "NoObject", {"Cub"}, 0, "1 test passed"},
        {"unknown aircraft", Expectation(0, 1, "Tap"), nullptr, {"Boeing"}, 2, "means no aircraft"},
    };
    for (const auto& row : rows) {
        const Installation installation;
        installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
        if (!row.overrides.empty())
            installation.Annotations("Cub", row.overrides);
        if (row.broken) {
            installation.Aircraft("Aircraft/Props/Broken", row.broken);
            if (row.broken == std::string("NoMaterial"))
                installation.Aircraft("Aircraft/Props/Broken", row.broken, NoMaterial());
            installation.Annotations("Broken", "");
        }
        std::vector<std::string> arguments{"test"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ProgramResult result = RunBatch(installation, arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.name << ": " << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(row.errors)) << row.name;
    }
}

TEST(TestCommand, WritesTheOtherReportsWhereOneCannotBeWritten) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Annotations("Cub", Expectation(0, 1, "Tap"));
    const Support::TemporaryFolder caller;
    Support::Program program(
        BatchWords({"-C", installation.path.string(), "test", "--csv", "missing/b.csv", "--json", "a.json"}),
        caller.path.string());
    const ProgramResult result = program.Wait();
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("missing/b.csv: No such file or directory"));
    const auto report = nlohmann::json::parse(caller.Read("a.json"), nullptr, false);
    EXPECT_EQ(report["passed"], 1);
    EXPECT_EQ(report["aircraft"][0]["parts"][0]["detected"], "Tap");
}

} // namespace
} // namespace Batch
