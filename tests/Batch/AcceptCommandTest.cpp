#include "Batch/BatchProgram.h"

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

const std::string kForward = "        <Reverse>0</Reverse>\n";

TEST(AcceptCommand, RecordsDetectionOnceAndOnlyForPartsWithARectangle) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    const ProgramResult shown = RunBatch(installation, {"accept", "--dry-run", "Cub"});
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_THAT(shown.output, HasSubstr("2 new expectations for QVRA/Annotations/Cub.xml\n  node 0 part 1: Tap, "));
    EXPECT_THAT(shown.output, HasSubstr("  node 1 part 0: Move, DragVariable: 0 , 1 -- sim/lever\n"));
    EXPECT_EQ(installation.Read(kCub), "");

    const ProgramResult accepted = RunBatch(installation, {"accept", "Cub"});
    EXPECT_EQ(accepted.exitCode, 0);
    EXPECT_EQ(accepted.output, shown.output);
    const std::string xml = "<Overrides>\n" + Record(0, 1, Expects("Tap") + kForward) +
                            Record(1, 0, Expects("Move") + kForward) + "</Overrides>\n";
    EXPECT_EQ(installation.Read(kCub), xml);
    EXPECT_EQ(RunBatch(installation, {"test"}).exitCode, 0);

    const ProgramResult again = RunBatch(installation, {"accept", "Cub"});
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_THAT(again.errors, HasSubstr("0 expectations added to 0 annotation files"));
    EXPECT_EQ(installation.Read(kCub), xml);
}

TEST(AcceptCommand, KeepsWhatTheFileHolds) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    const std::string other = Record(0, 1, "        <InteractionType>Slide</InteractionType>\n");
    installation.Annotations(
        "Cub", "<!--mine-->" + Expectation(1, 0, "Twist") + other +
                   "<Override><NodeId>0</NodeId><PartId>1</PartId><InteractionType>Radio</InteractionType>"
                   "<Tooltip>a &lt; b</Tooltip><Reverse>1</Reverse></Override>" +
                   Expectation(90, 1, "Tap"));
    EXPECT_EQ(RunBatch(installation, {"accept", "Cub"}).exitCode, 0);
    EXPECT_EQ(installation.Read(kCub),
              "<Overrides>\n    <!--mine-->\n" + Record(1, 0, Expects("Twist")) + other +
                  Record(0, 1,
                         "        <InteractionType>Radio</InteractionType>\n" + Expects("Tap") +
                             "        <Tooltip>a &lt; b</Tooltip>\n"
                             "        <Reverse>1</Reverse>\n") +
                  Record(90, 1, Expects("Tap")) + "</Overrides>\n");
}

TEST(AcceptCommand, InsertsInOrderAndMendsAnUnknownWord) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    installation.Annotations("Cub", Expectation(1, 0, "Slide"));
    EXPECT_EQ(RunBatch(installation, {"accept", "Cub"}).exitCode, 0);
    EXPECT_EQ(installation.Read(kCub), "<Overrides>\n" + Record(0, 1, Expects("Tap") + kForward) +
                                           Record(1, 0, Expects("Move")) + "</Overrides>\n");
}

TEST(AcceptCommand, RecordsYokesWhenAsked) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          Support::ObjText()
                              .Texture()
                              .Begin()
                              .Line("ANIM_rotate 0 0 1 -50 50 -1 1 sim/cockpit2/controls/yoke_roll_ratio")
                              .Begin()
                              .Line("ANIM_rotate 1 0 0 -10 10 -1 1 sim/cockpit2/controls/yoke_pitch_ratio")
                              .Tris()
                              .End()
                              .End());
    EXPECT_THAT(RunBatch(installation, {"accept", "Cub"}).output, HasSubstr("0 new expectations"));
    EXPECT_EQ(RunBatch(installation, {"accept", "--yoke", "Cub"}).exitCode, 0);
    EXPECT_THAT(installation.Read(kCub), HasSubstr("<InteractionTypeTest>YokePrimary<"));
}

TEST(AcceptCommand, LeavesFilesAloneThatItCannotTakeUp) {
    const struct {
        const char* name;
        std::string annotations;
        std::vector<std::string> words;
        int exitCode;
        const char* errors;
    } rows[] = {
        {"no XML", "<Overrides><Over", {"Cub"}, 3, "Cub.xml: line 1 is not well-formed XML"},
        {"does not load", "<Overrides/>", {"Piper"}, 3, "TRIS before any TEXTURE"},
        {"no aircraft named", "<Overrides/>", {}, 2, "AIRCRAFT is required"},
        {"unknown aircraft", "<Overrides/>", {"Boeing"}, 2, "means no aircraft"},
    };
    for (const auto& row : rows) {
        const Installation installation;
        installation.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
        installation.Aircraft("Aircraft/Props/Piper", "Piper", NoMaterial());
        installation.Write(kCub, row.annotations);
        std::vector<std::string> arguments{"accept"};
        arguments.insert(arguments.end(), row.words.begin(), row.words.end());
        const ProgramResult result = RunBatch(installation, arguments);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.name;
        EXPECT_THAT(result.errors, HasSubstr(row.errors)) << row.name;
        EXPECT_EQ(installation.Read(kCub), row.annotations) << row.name;
    }
    const Installation unwritable;
    unwritable.Aircraft("Aircraft/Props/Cub", "Cub", ThreeParts());
    unwritable.Write("QVRA/Annotations", "a file where the folder belongs");
    EXPECT_EQ(RunBatch(unwritable, {"accept", "Cub"}).exitCode, 4);
}

TEST(AcceptCommand, LetsTheFirstOfTwoAircraftWithOneFileStand) {
    const Installation installation;
    installation.Aircraft("Aircraft/A/Cub", "Ours", ThreeParts());
    installation.Aircraft("Aircraft/B/Cub", "Ours too", ThreeParts());
    const ProgramResult result = RunBatch(installation, {"accept", "Aircraft/A/", "Aircraft/B/"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.errors, HasSubstr("is of both"));
    EXPECT_THAT(result.errors, HasSubstr("2 expectations added to 1 annotation file"));
}

} // namespace
} // namespace Batch
