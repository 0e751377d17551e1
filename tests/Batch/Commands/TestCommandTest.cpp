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

TEST(TestCommand, ShowsFailedPartsInTheHtmlReport) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Annotations("Cub", Expectation(0, 0, "Tap") + Expectation(0, 1, "Tap") + Expectation(1, 0, "Twist"));
    const std::vector<std::string> arguments{"test", "--html", "a.html", "--json", "a.json", "--pictures"};
    EXPECT_EQ(RunBatch(installation, {"test", "--pictures"}).exitCode, 2);
    const ProgramResult result = RunBatch(installation, arguments);
    EXPECT_EQ(result.exitCode, 1) << result.errors;
    const std::string html = installation.Read("a.html"), json = installation.Read("a.json");
    const std::string source = "src=\"data:image/png;base64,";
    std::size_t count = 0;
    for (std::size_t at = html.find(source); at != html.npos; at = html.find(source, at + 1), ++count)
        EXPECT_LE(html.find('"', at + source.size()) - at - source.size(), 30'000u);
    EXPECT_EQ(count, 2u) << "the failed ones";
    EXPECT_THAT(html, HasSubstr("alt=\"Node 1 part 0 of Cub\""));
    RunBatch(installation, arguments);
    EXPECT_EQ(installation.Read("a.html"), html);

    std::vector<std::string> words = BatchWords(arguments);
    words.insert(words.begin(), {"/usr/bin/env", "__EGL_VENDOR_LIBRARY_DIRS=/"});
    const ProgramResult noDevice = Support::Program(words, installation.path.string()).Wait();
    EXPECT_EQ(noDevice.exitCode, 1);
    EXPECT_THAT(noDevice.errors, HasSubstr("plane.acf): the report lacks pictures of failed parts: "));
    const std::string without = installation.Read("a.html");
    EXPECT_THAT(without, testing::Not(HasSubstr("<img")));
    RunBatch(installation, {"test", "--html", "a.html"});
    EXPECT_EQ(installation.Read("a.html"), without);
    EXPECT_EQ(installation.Read("a.json"), json);
}

TEST(TestCommand, KeepsTheExpectationsOfTheFullReadingApart) {
    const Installation installation;
    // The plain reading takes a drag without motion for Twist, and a push for the drag above it.
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          Support::ObjText()
                              .Texture()
                              .Toggle("sim/a")
                              .Tris()
                              .Drag("sim/b")
                              .Tris()
                              .Line("ATTR_manip_push hand 1 0 sim/c")
                              .Tris());
    installation.Annotations("Cub", Expectation(0, 0, "Tap") + Expectation(0, 1, "Twist"));
    const std::string plain = installation.Read("QVRA/Annotations/Cub.xml"), fullFile = "QVRA/Annotations/full/Cub.xml";
    const ProgramResult first = RunBatch(installation, {"test", "--full", "--json", "parts/first.json"});
    EXPECT_EQ(first.exitCode, 4) << "no folder for the report";
    EXPECT_THAT(first.errors, HasSubstr("1 test passed, 1 failed, 1 of them as the plain reading detects"));
    EXPECT_THAT(first.errors, HasSubstr("1 aircraft tested with expectations of the plain reading"));
    EXPECT_EQ(installation.Read(fullFile), "");

    EXPECT_THAT(RunBatch(installation, {"accept", "--full", "Cub"}).output, HasSubstr("node 0 part 2: Tap"));
    EXPECT_THAT(installation.Read(fullFile), HasSubstr("<InteractionTypeTest>Twist<")) << "copied";
    EXPECT_EQ(installation.Read("QVRA/Annotations/Cub.xml"), plain);
    installation.Write(fullFile, installation.Read(fullFile) + "<!-- ours -->");
    const ProgramResult second = RunBatch(installation, {"test", "--full", "--json", "full.json"});
    EXPECT_THAT(second.errors, HasSubstr("2 tests passed, 1 failed, 1 of them as the plain reading detects"));
    EXPECT_THAT(second.errors, testing::Not(HasSubstr("with expectations of")));
    EXPECT_THAT(RunBatch(installation, {"test"}).errors, HasSubstr("2 tests passed, 0 failed\n"));
    EXPECT_EQ(RunBatch(installation, {"merge", "full.json"}).exitCode, 2);
    const ProgramResult merged = RunBatch(installation, {"merge", "--full", "--json", "merged.json", "full.json"});
    EXPECT_EQ(merged.output, second.output);
    EXPECT_EQ(installation.Read("merged.json"), installation.Read("full.json"));
}

TEST(TestCommand, TestsAgainstTheBlocksOfAVrConfig) {
    const auto knob = [](const std::string& name) {
        return "ATTR_manip_command_knob hand " + name + "/up " + name + "/down";
    };
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Jet", "Jet", ThreeParts());
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          Support::ObjText()
                              .Line(knob("a"))
                              .Tris()
                              .Tris()
                              .Line("ATTR_manip_command_switch_up_down hand b/up b/down")
                              .Tris()
                              .Line("ATTR_manip_command_axis rotate_small 1 0 0 c/up c/down")
                              .Tris()
                              .Line("ATTR_manip_drag_xy hand 1 1 -1 1 -1 1 x/yoke_roll_ratio x/yoke_pitch_ratio")
                              .Tris()
                              .Toggle("sim/d")
                              .Tris());
    installation.Annotations("Cub", Expectation(0, 0, "Tap"));
    const auto block = [](const std::string& first) { return "BEGIN_MANIP " + first + "\nEND_MANIP\n"; };
    const std::string file = "Aircraft/Props/Cub/plane_vrconfig.txt", header = "A\n1100\nVRCONFIG\n";
    installation.Write(file, header + block("command_knob a/up a/down") + block("command_switch_up_down b/up b/down") +
                                 block("command_axis c/up c/down\nACTION command_axis 1 0 0 c/up c/down") +
                                 block("command_axis c/up c/down\nACTION command_knob c/up c/down") +
                                 block("drag_xy x/yoke_roll_ratio x/yoke_pitch_ratio") + block("toggle sim/d") +
                                 block("command_knob not/up not/down"));
    const ProgramResult result = RunBatch(installation, {"test", "--vrconfig", "--json", "a.json"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, testing::ContainsRegex("Cub +0 +3 +command_axis: .* +Move +Twist +None +8\n"));
    EXPECT_THAT(result.errors, HasSubstr("4 tests passed, 1 failed"));
    EXPECT_THAT(result.errors, HasSubstr("1 aircraft without a _vrconfig.txt, not tested: Jet\n"));
    const ProgramResult merged = RunBatch(installation, {"merge", "--full", "--json", "b.json", "a.json"});
    EXPECT_EQ(merged.output, result.output);
    EXPECT_EQ(installation.Read("b.json"), installation.Read("a.json"));
    RunBatch(installation, {"test", "--full", "--json", "c.json"});
    EXPECT_EQ(RunBatch(installation, {"merge", "--full", "a.json", "c.json"}).exitCode, 2);
    EXPECT_THAT(RunBatch(installation, {"test", "--vrconfig", "Jet"}).errors,
                HasSubstr("no tests found: no _vrconfig"));
    installation.Write(file, header + "BEGIN_MANIP command_knob a/up a/down\n");
    const ProgramResult broken = RunBatch(installation, {"test", "--vrconfig"});
    EXPECT_EQ(broken.exitCode, 3);
    EXPECT_THAT(broken.errors, HasSubstr("plane_vrconfig.txt cannot be divided into blocks: line 4: found"));
}

} // namespace
} // namespace Batch
