#include "Batch/BatchProgram.h"

#include <chrono>
#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Expectation;
using Support::Installation;
using Support::ProgramResult;
using testing::HasSubstr;

constexpr const char* kCub = "QVRA/Annotations/Cub.xml";

std::string Record(int node, int part, const std::string& fields) {
    return "    <Override>\n        <NodeId>" + std::to_string(node) + "</NodeId>\n        <PartId>" +
           std::to_string(part) + "</PartId>\n" + fields + "    </Override>\n";
}

std::string Expects(const std::string& type) {
    return "        <InteractionTypeTest>" + type + "</InteractionTypeTest>\n";
}

TEST(AcceptCommand, AddsMissingExpectationsInOrderAndKeepsTheRest) {
    const std::string forward = "        <Reverse>0</Reverse>\n";
    const std::string twice = Record(0, 1, "        <InteractionType>Slide</InteractionType>\n");
    const struct {
        const char* name;
        std::string before, after; ///< content of "Overrides"
    } rows[] = {
        {"an unknown type is replaced", Expectation(1, 0, "Slide"),
         Record(0, 1, Expects("Tap") + forward) + Record(1, 0, Expects("Move"))},
        {"comments, other fields, parts that do not exist",
         "<!--mine-->" + Expectation(1, 0, "Twist") + twice +
             "<Override><NodeId>0</NodeId><PartId>1</PartId><InteractionType>Radio</InteractionType>"
             "<Tooltip>a &lt; b</Tooltip><Reverse>1</Reverse></Override>" +
             Expectation(90, 1, "Tap"),
         "    <!--mine-->\n" + Record(1, 0, Expects("Twist")) + twice +
             Record(0, 1,
                    "        <InteractionType>Radio</InteractionType>\n" + Expects("Tap") +
                        "        <Tooltip>a &lt; b</Tooltip>\n        <Reverse>1</Reverse>\n") +
             Record(90, 1, Expects("Tap"))},
    };
    for (const auto& row : rows) {
        const Installation installation;
        installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
        installation.Annotations("Cub", row.before);
        const std::string before = installation.Read(kCub), after = "<Overrides>\n" + row.after + "</Overrides>\n";
        const ProgramResult shown = RunBatch(installation, {"accept", "--dry-run", "Cub"});
        EXPECT_EQ(installation.Read(kCub), before) << row.name;
        const ProgramResult accepted = RunBatch(installation, {"accept", "Cub"});
        EXPECT_EQ(accepted.exitCode, 0) << row.name;
        EXPECT_EQ(accepted.output, shown.output) << row.name;
        EXPECT_EQ(installation.Read(kCub), after) << row.name;
        RunBatch(installation, {"accept", "Cub"});
        EXPECT_EQ(installation.Read(kCub), after) << row.name << ", again";
    }
}

TEST(AcceptCommand, DoesNotChangeFilesThatItCannotRead) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
    installation.Write(kCub, "<Overrides><Over");
    const ProgramResult result = RunBatch(installation, {"accept", "Cub", "Piper"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.errors, HasSubstr("Cub.xml: line 1 is not well-formed XML"));
    EXPECT_EQ(installation.Read(kCub), "<Overrides><Over");
    EXPECT_EQ(installation.Read("QVRA/Annotations/Piper.xml"), "");
    boost::filesystem::remove_all(installation / "QVRA/Annotations");
    installation.Write("QVRA/Annotations", "a file instead of the folder");
    EXPECT_EQ(RunBatch(installation, {"accept", "Cub"}).exitCode, 4);
}

TEST(AcceptCommand, KeepsTheFirstOfTwoAircraftWithOneFile) {
    const Installation installation;
    installation.Aircraft("Aircraft/A/Cub", "Ours", ThreeParts());
    installation.Aircraft("Aircraft/B/Cub", "Ours too", Support::ObjText().Texture().Tris().Drag("sim/knob").Tris());
    const ProgramResult result = RunBatch(installation, {"accept", "Aircraft/A/", "Aircraft/B/"});
    EXPECT_THAT(result.errors, HasSubstr("belongs to both"));
    const std::string type = result.output.starts_with("Ours (") ? "Tap" : "Twist"; // in the system's order of folders
    EXPECT_THAT(installation.Read(kCub), HasSubstr(Record(0, 1, Expects(type) + "        <Reverse>0</Reverse>\n")));
}

TEST(AcceptCommand, TakesTimeInProportionToTheParts) {
    const Installation installation;
    Support::ObjText object;
    object.Texture().Toggle("sim/switch");
    for (int part = 0; part < 4000; ++part)
        object.Tris();
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THAT(RunBatch(installation, {"accept", "Cub"}).errors, HasSubstr("4000 expectations added to 1"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << "quadratic in the number of parts";
}

TEST(ReadOnlyCommands, CreateNothingInTheInstallation) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"accept", "--dry-run", "Cub"}, {"explain", "Cub", "1,0"}, {"manips"}, {"test"}, {"lint", "Cub"}}) {
        EXPECT_NE(RunBatch(installation, arguments).exitCode, 2) << arguments[0];
        EXPECT_TRUE(boost::filesystem::is_empty(installation / "QVRA")) << arguments[0];
    }
}

} // namespace
} // namespace Batch
