#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Batch {
namespace {

using Support::ProgramResult;
using Support::TemporaryFolder;
using testing::HasSubstr;

std::string Part(int node, int part, const std::string& type, const std::string& event = "Wheel",
                 const std::string& reverse = "0") {
    return "<Part><NodeId>" + std::to_string(node) + "</NodeId><PartId>" + std::to_string(part) +
           "</PartId><InteractionType>" + type + "</InteractionType><EventType>" + event + "</EventType><Reverse>" +
           reverse + "</Reverse></Part>";
}

std::string File(const std::string& parts) {
    return "<NodePartList>" + parts + "</NodePartList>";
}

ProgramResult RunCompare(const TemporaryFolder& folder, const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{"compare", "a", "b"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Support::Program(BatchWords(arguments), folder.path.string()).Wait();
}

TEST(CompareCommand, TellsWhatChangedAppearedAndVanished) {
    const TemporaryFolder folder;
    folder.Write("a/Cub.xml", File(Part(0, 0, "None") + Part(0, 1, "Tap") + Part(2, 0, "Move") + Part(3, 0, "Twist")));
    folder.Write("b/Cub.xml", File(Part(0, 1, "Tap", "LClick/RClick", "1") + Part(0, 0, "None") + Part(2, 0, "Twist") +
                                   Part(10, 0, "Tap")));
    folder.Write("a/Same.xml", File(Part(0, 0, "None")));
    folder.Write("b/Same.xml", "<NodePartList>\n" + Part(0, 0, "None") + "</NodePartList>\n");
    folder.Write("a/Old.xml", File(""));
    folder.Write("b/New.xml", "not looked into");
    folder.Write("b/.Cub.xml.1.saving", "");
    const ProgramResult result = RunCompare(folder);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "Cub.xml\n"
                             "  node 0 part 1: EventType Wheel -> LClick/RClick, Reverse 0 -> 1\n"
                             "  node 2 part 0: Move -> Twist\n"
                             "  node 3 part 0: vanished, was Twist\n"
                             "  node 10 part 0: appeared as Tap\n"
                             "New.xml: only in b\n"
                             "Old.xml: only in a\n");
    EXPECT_THAT(result.errors, HasSubstr("2 files compared, 4 parts differ, 2 in one folder only"));

    const auto json = nlohmann::json::parse(RunCompare(folder, {"--json"}).output, nullptr, false);
    ASSERT_EQ(json["files"].size(), 3u);
    EXPECT_EQ(json["compared"], 2);
    EXPECT_EQ(json["files"][0]["parts"][1]["a"]["interactionType"], "Move");
    EXPECT_EQ(json["files"][0]["parts"][2]["b"], nullptr);
    EXPECT_EQ(json["files"][1]["inA"], false);
}

TEST(CompareCommand, TellsOutcomesByItsExitCode) {
    const struct {
        const char* name;
        std::string a, b;
        int exitCode;
        const char* errors;
    } rows[] = {
        {"same", File(Part(0, 0, "Tap")), File(Part(0, 0, "Tap")), 0, "0 parts differ"},
        {"read as the same type", File(Part(0, 0, "Tap")), File(Part(0, 0, "Push")), 0, "0 parts differ"},
        {"no XML", File(""), "<NodePartList>\n<Part", 3, "b/Cub.xml: line 2: not well-formed XML"},
        {"empty", "", File(""), 3, "a/Cub.xml: it is empty"},
        {"annotations", "<Overrides/>", File(""), 3, "root element is not NodePartList"},
        {"unknown type", File("\n" + Part(0, 0, "Slide")), File(""), 3, "line 2: InteractionType 'Slide' is not"},
        {"no id", File("<Part/>"), File(""), 3, "this Part has no NodeId"},
        {"odd id", File(Part(-1, 0, "Tap")), File(""), 3, "NodeId '-1' is not a number from 0 up"},
        {"odd flag", File(Part(1, 0, "Tap", "Wheel", "yes")), File(""), 3, "Reverse 'yes' is not 0 or 1"},
        {"twice", File(Part(1, 0, "Tap") + Part(1, 0, "Tap")), File(""), 3, "node 1 part 0 stands in the file twice"},
    };
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        folder.Write("a/Cub.xml", row.a);
        folder.Write("b/Cub.xml", row.b);
        const ProgramResult result = RunCompare(folder);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.name;
        EXPECT_THAT(result.errors, HasSubstr(row.errors)) << row.name;
    }
    const TemporaryFolder folder;
    folder.Write("a/readme", "");
    EXPECT_EQ(RunCompare(folder).exitCode, 2) << "b is not there";
    folder.Write("b/readme", "");
    EXPECT_THAT(RunCompare(folder).errors, HasSubstr("neither folder has a detected-data file"));
}

} // namespace
} // namespace Batch
