#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::ProgramResult;
using Support::TemporaryFolder;
using testing::HasSubstr;

std::string Part(int node, const std::string& type, const std::string& event = "Wheel",
                 const std::string& reverse = "0") {
    return "<Part><NodeId>" + std::to_string(node) + "</NodeId><PartId>0</PartId><InteractionType>" + type +
           "</InteractionType><EventType>" + event + "</EventType><Reverse>" + reverse + "</Reverse></Part>";
}

std::string File(const std::string& parts) {
    return "<NodePartList>" + parts + "</NodePartList>";
}

TEST(CompareCommand, PrintsWhatChangedAppearedAndVanished) {
    const TemporaryFolder folder;
    folder.Write("a/Cub.xml", File(Part(0, "None") + Part(1, "Tap") + Part(2, "Move") + Part(3, "Twist")));
    folder.Write("b/Cub.xml",
                 File(Part(1, "Tap", "LClick/RClick", "1") + Part(0, "None") + Part(2, "Twist") + Part(10, "Tap")));
    folder.Write("a/Same.xml", File(Part(0, "None")));
    folder.Write("b/Same.xml", "<NodePartList>\n" + Part(0, "None") + "</NodePartList>\n");
    folder.Write("a/Old.xml", File(""));
    folder.Write("b/New.xml", "not read");
    folder.Write("b/.Cub.xml.1.saving", "");
    const ProgramResult result = RunBatch(folder, {"compare", "a", "b"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "Cub.xml\n"
                             "  node 1 part 0: EventType Wheel -> LClick/RClick, Reverse 0 -> 1\n"
                             "  node 2 part 0: Move -> Twist\n"
                             "  node 3 part 0: vanished, was Twist\n"
                             "  node 10 part 0: appeared as Tap\n"
                             "New.xml: only in b\n"
                             "Old.xml: only in a\n");
    EXPECT_THAT(result.errors, HasSubstr("2 files compared, 4 parts differ, 2 in only one folder"));
}

TEST(CompareCommand, ComparesBothReadings) {
    const Support::Installation installation;
    const Support::ObjText object = Support::ObjText().Texture().Toggle("a/b").Tris();
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          Support::ObjText(object).Line("ATTR_manip_command_knob hand a/up a/down").Tris());
    for (const char* option : {"--full", "--untextured"})
        EXPECT_EQ(RunBatch(installation, {"detect", "--out", option + 2, option}).exitCode, 0);
    EXPECT_EQ(RunBatch(installation, {"compare", "untextured", "full"}).output,
              "Cub.xml\n  node 0 part 1: Tap -> Twist, EventType Wheel -> LClick/LClick\n");
}

TEST(CompareCommand, ReportsTheOutcomeAsExitCode) {
    const std::string none = File("");
    const struct {
        std::string a, b;
        int exitCode;
        const char* errors;
    } rows[] = {
        {File(Part(0, "Tap")), File(Part(0, "Push")), 0, "0 parts differ"}, // read as the same type
        {none, "<NodePartList>\n<Part", 3, "b/Cub.xml: line 2: not well-formed XML"},
        {"<Overrides/>", none, 3, "root element is not NodePartList"},
        {File("\n" + Part(0, "Slide")), none, 3, "line 2: InteractionType 'Slide' is not"},
        {File(Part(-1, "Tap")), none, 3, "NodeId '-1' is not a number of at least 0"},
        {File(Part(1, "Tap", "Wheel", "yes")), none, 3, "Reverse 'yes' is not 0 or 1"},
        {File(Part(1, "Tap") + Part(1, "Tap")), none, 3, "node 1 part 0 is in the file twice"},
    };
    const TemporaryFolder folder;
    folder.Write("a/readme", "");
    EXPECT_EQ(RunBatch(folder, {"compare", "a", "b"}).exitCode, 3) << "b does not exist";
    folder.Write("b/readme", "");
    const ProgramResult neither = RunBatch(folder, {"compare", "a", "b"});
    EXPECT_EQ(neither.exitCode, 3);
    EXPECT_THAT(neither.errors, HasSubstr("neither folder contains a detected-data file"));
    for (const auto& row : rows) {
        folder.Write("a/Cub.xml", row.a);
        folder.Write("b/Cub.xml", row.b);
        const ProgramResult result = RunBatch(folder, {"compare", "a", "b"});
        EXPECT_EQ(result.exitCode, row.exitCode) << row.errors;
        EXPECT_THAT(result.errors, HasSubstr(row.errors));
    }
}

} // namespace
} // namespace Batch
