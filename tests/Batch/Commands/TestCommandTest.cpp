#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using Support::Expectation;
using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(TestCommand, ReportsTheOutcomeAsExitCode) {
    const std::string passes = Expectation(0, 1, "Tap"), fails = Expectation(0, 0, "Tap");
    const struct {
        std::string overrides; ///< of an aircraft that loads; empty for no aircraft
        std::string broken;    ///< display name of an annotated aircraft that does not load, or empty
        std::vector<std::string> arguments;
        int exitCode;
        const char* errors;
    } rows[] = {
        {passes, "", {"--require-tests"}, 0, "1 test passed, 0 failed"},
        {fails, "", {}, 1, "0 tests passed, 1 failed"},
        {"", "", {}, 0, "no tests found"},
        {"", "", {"--require-tests"}, 1, "no tests found"},
        {Expectation(9, 2, "Tap"), "", {}, 3, "1 expectation has no matching part in the cockpit: node 9 part 2"},
        {passes, "NoMaterial", {}, 3, "plane_cockpit.obj(11): TRIS before any"},
        {fails, "NoObject", {}, 3, "annotations but no cockpit object"},
        {passes, "NoObject", {"Cub"}, 0, "1 test passed"},
    };
    for (const auto& row : rows) {
        const Installation installation;
        installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
        if (!row.overrides.empty())
            installation.Annotations("Cub", row.overrides);
        if (!row.broken.empty()) {
            installation.Aircraft("Aircraft/Props/Broken", row.broken);
            installation.Annotations("Broken", "");
        }
        if (row.broken == "NoMaterial")
            installation.Write("Aircraft/Props/Broken/plane_cockpit.obj", NoMaterial().Text());
        std::vector<std::string> arguments{"test"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const ProgramResult result = RunBatch(installation, arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.errors << ": " << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(row.errors));
    }
}

TEST(TestCommand, WritesTheOtherReportsIfOneFails) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Annotations("Cub", Expectation(0, 1, "Tap"));
    const ProgramResult result = RunBatch(installation, {"test", "--csv", "missing/b.csv", "--json", "a.json"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("missing/b.csv: No such file or directory"));
    const auto report = nlohmann::json::parse(installation.Read("a.json"), nullptr, false);
    EXPECT_EQ(report["passed"], 1);
}

} // namespace
} // namespace Batch
