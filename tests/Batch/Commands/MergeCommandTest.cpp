#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Expectation;
using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

const std::vector<std::string> kReports{"junit", "json", "csv", "html"};

/// All output and files of a run.
std::string Everything(const Installation& installation, std::vector<std::string> arguments, const std::string& name) {
    for (const std::string& report : kReports) {
        arguments.push_back("--" + report);
        arguments.push_back(name + "." + report);
    }
    const ProgramResult result = RunBatch(installation, arguments);
    std::string all = std::to_string(result.exitCode) + "\n" + result.output + result.errors;
    for (const std::string& report : kReports)
        all += installation.Read(name + "." + report);
    return all;
}

TEST(MergeCommand, WritesTheReportOfASingleRun) {
    const Installation installation;
    for (const char* name : {"Pass", "Fail", "Broken", "Plain", "Unplaced"})
        installation.Aircraft(std::string("Aircraft/Props/") + name, name,
                              name == std::string("Broken") ? NoMaterial() : ThreeParts());
    installation.Aircraft("Aircraft/Props/Shell", "Shell, which has annotations but no cockpit object");
    installation.Annotations("Shell", "");
    installation.Annotations("Pass", Expectation(0, 1, "Tap"));
    installation.Annotations("Fail", Expectation(0, 1, "Tap") + Expectation(1, 0, "Twist"));
    installation.Annotations("Broken", Expectation(0, 0, "Tap"));
    installation.Annotations("Unplaced", Expectation(8, 0, "YokePart"));

    std::vector<std::string> merge{"merge"};
    std::istringstream list(RunBatch(installation, {"list"}).output);
    for (std::string line; std::getline(list, line);) {
        const std::string part = "parts/" + std::to_string(merge.size()) + ".json";
        boost::filesystem::create_directories(installation / "parts");
        RunBatch(installation, {"test", "--json", part, line.substr(0, line.find('\t'))});
        merge.push_back(part);
    }
    ASSERT_EQ(merge.size(), 7u);
    const std::string single = Everything(installation, {"test", "--jobs", "1"}, "single");
    EXPECT_THAT(single, testing::StartsWith("3\nAircraft "));
    EXPECT_THAT(single, testing::Not(testing::ContainsRegex("\n[A-Z].* 0 +0 +0\n"))) << "a row without tests";
    EXPECT_EQ(Everything(installation, {"test", "--jobs", "8"}, "at once"), single);
    EXPECT_EQ(Everything(installation, merge, "merged"), single);
    EXPECT_EQ(Everything(installation, {"merge", "parts"}, "folder"), single);
    const ProgramResult twice = RunBatch(installation, {"merge", "parts", merge[1]});
    EXPECT_EQ(twice.exitCode, 2);
    EXPECT_THAT(twice.errors, testing::ContainsRegex("/plane.acf is in both .*/parts/1.json and .*/parts/1.json"));
}

TEST(MergeCommand, WritesNothingIfAPartIsInvalid) {
    const Installation installation;
    installation.Write("good.json", R"({"aircraft":[]})");
    installation.Write("list.json", "[1]");
    installation.Write("type.json", R"({"aircraft":[{"displayName":"a","acfPath":"b","hasCockpitObject":true,
        "clickable":1,"covered":1,"unplaced":[],"problems":[],"parts":[{"nodeId":0,"partId":0,"mouseRect":"",
        "expected":"Slide","detected":"Tap","passed":true}]}]})");
    boost::filesystem::create_directories(installation / "none");
    const std::pair<const char*, const char*> rows[] = {{"list.json", "list.json: not a JSON report of 'test'"},
                                                        {"type.json", "type.json: 'Slide' is not an interaction type"},
                                                        {"missing.json", "missing.json: the file is missing"},
                                                        {"none", "the folder contains no JSON report (*.json)"}};
    for (const auto& [part, errors] : rows) {
        const ProgramResult result = RunBatch(installation, {"merge", "--csv", "out.csv", "good.json", part});
        EXPECT_EQ(result.exitCode, 3) << part;
        EXPECT_THAT(result.errors, HasSubstr(errors));
        EXPECT_EQ(installation.Read("out.csv"), "") << part;
    }
    EXPECT_EQ(RunBatch(installation, {"merge", "good.json"}).exitCode, 0);
    EXPECT_EQ(RunBatch(installation, {"merge", "--require-tests", "good.json"}).exitCode, 1);
}

} // namespace
} // namespace Batch
