#include "CockpitModel/XPlane/VrConfigFile.h"

#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/VrConfigParts.h"

#include <gmock/gmock.h>

namespace CockpitModel {
namespace {

using testing::ElementsAre;

/// The text after the header begins in line 4.
VrConfigFile Parse(const std::string& text) {
    return ParseVrConfig("A\n1100\nVRCONFIG\n" + text);
}

std::vector<std::string> FaultsOf(const VrConfigFile& file) {
    std::vector<std::string> texts;
    for (const VrConfigFault& fault : file.faults)
        texts.push_back(std::to_string(fault.line) + ": " + fault.found + " -> " + fault.needed);
    return texts;
}

constexpr const char* kSeat =
    "BEGIN_TELEPORT_HOTSPOT SITTING Pilot's  Seat\t\nAABB -1 0 -3 1 2 3\nPRESET_XYZ .5 +1 -2e0\n"
    "PRESET_PSI 90 # right\nPRESET_THE -5\nPRESET_PHI 1\nEND_TELEPORT_HOTSPOT\n";

TEST(VrConfigFile, PrintsWhatItParsed) {
    for (const std::string& text :
         {std::string(), std::string("\n"), std::string("A\r\n1100\r\nVRCONFIG\r\n\r\n# x\r\nEND_MANIP"),
          std::string("\xEF\xBB\xBF"
                      "A\n1100\nVRCONFIG\n \t\nNEW_WORD 1  2\n\nBEGIN_MANIP command a\n\tFUTURE x\nEND_MANIP\r"),
          std::string("\0\n\xFF\xFE \r\r\n", 8), kSeat + std::string(kSeat)})
        EXPECT_EQ(PrintVrConfig(ParseVrConfig(text)), text);
}

TEST(VrConfigFile, ReadsBlocksAndHotspots) {
    const VrConfigFile file = ParseVrConfig(
        "\xEF\xBB\xBF"
        "A\r\n1100\r\nVRCONFIG\r\n" +
        std::string(kSeat) +
        " REF_POINT_ACF\r\n\tBEGIN_MANIP  command_knob\ta/up a/dn Course knob\r\n# c\r\n\tDEG_PER_ACTION 30\r\n"
        "ACTION axis_knob 0 1 .1 a/b\r\nNEW 1 2\r\nHOLD_MANIP\r\nEND_MANIP\r\nBEGIN_MANIP drag_xy none "
        "a/y\r\nEND_MANIP");
    EXPECT_THAT(FaultsOf(file), ElementsAre());
    ASSERT_EQ(file.hotspots.size(), 1u);
    const VrConfigHotspot& seat = file.hotspots[0];
    EXPECT_EQ(seat.kind + "|" + seat.name, "SITTING|Pilot's  Seat");
    EXPECT_THAT(seat.box.value(), ElementsAre(-1, 0, -3, 1, 2, 3));
    EXPECT_THAT(seat.head.value(), ElementsAre(0.5f, 1, -2));
    EXPECT_EQ(std::tuple(seat.psi, seat.the, seat.phi), std::tuple(90.0f, -5.0f, 1.0f));
    EXPECT_EQ(std::tuple(seat.firstLine, seat.headLine, seat.lastLine, file.refPointLine),
              std::tuple(4u, 6u, 10u, 11u));
    ASSERT_EQ(file.blocks.size(), 2u);
    const VrConfigBlock& knob = file.blocks[0];
    EXPECT_EQ(std::tuple(knob.firstLine, knob.lastLine, knob.directives.size()), std::tuple(12u, 18u, 4u));
    EXPECT_EQ(VrConfigKey(knob), "command_knob a/up a/dn") << "what follows the names is a tooltip";
    EXPECT_EQ(knob.Find("DEG_PER_ACTION")->line, 14u);
    EXPECT_THAT(knob.Find("ACTION")->values, ElementsAre("axis_knob", "0", "1", ".1", "a/b"));
    EXPECT_EQ(VrConfigKey(file.blocks[1]), "drag_xy a/y") << "a placeholder is no name";
    ASSERT_EQ(file.unknown.size(), 1u);
    EXPECT_EQ(file.unknown[0].line, 16u);
    EXPECT_EQ(file.LineEnd(), "\r\n");
    EXPECT_EQ(Parse(kSeat).LineEnd(), "\n");
}

TEST(VrConfigFile, FindsWhatBreaksTheFormat) {
    const struct {
        const char* text;
        std::vector<std::string> faults;
    } rows[] = {
        {"", {"1: the end of the file -> A"}},
        {"A\n1100", {"3: the end of the file -> VRCONFIG"}},
        {"# mine\nA\n1100\nVRCONFIG\n", {"1: '# mine' -> A"}},
        {"A\n\n1100\nVRCONFIG\n", {"2: an empty line -> 1100"}},
        {"A\n1100\nBEGIN_MANIP noop\nEND_MANIP", {"3: 'BEGIN_MANIP noop' -> VRCONFIG"}},
        {"I\n1200\nVRCONFIG\nEND_MANIP", {"4: END_MANIP -> BEGIN_MANIP before it"}},
        {"A\n1100\nVRCONFIG\nHOLD_MANIP\nPRESET_PSI 0",
         {"4: 'HOLD_MANIP' -> BEGIN_MANIP before it", "5: 'PRESET_PSI' -> BEGIN_TELEPORT_HOTSPOT before it"}},
        {"A\n1100\nVRCONFIG\nBEGIN_MANIP\nREF_POINT_ACF\nBEGIN_MANIP noop\nEND_TELEPORT_HOTSPOT\nBEGIN_MANIP command a",
         {"4: no keyword -> the keyword of a manipulator, then its datarefs or commands",
          "5: REF_POINT_ACF inside the BEGIN_MANIP of line 4 -> it before the first block",
          "4: no END_MANIP before line 6 -> one for this BEGIN_MANIP",
          "7: END_TELEPORT_HOTSPOT -> END_MANIP for the BEGIN_MANIP of line 6",
          "8: no END_MANIP before the end of the file -> one for this BEGIN_MANIP"}},
        {"A\n1100\nVRCONFIG\nBEGIN_MANIP command a\nDEG_PER_ACTION\nDEG_PER_ACTION 1,5\nDEG_PER_ACTION "
         "inf\nYOKE_MANIP_ROTATE 1 2\n"
         "ACTION\nACTION axis_knob 0 1\nACTION axis_knob a/b\nACTION command_knob 1 a b\nACTION later "
         "1\nYOKE_MANIP_TRANSLATE 1\nEND_MANIP",
         {"5: 0 numbers -> 1 number after DEG_PER_ACTION", "6: '1,5' -> 1 number after DEG_PER_ACTION",
          "7: 'inf' -> 1 number after DEG_PER_ACTION", "8: 2 numbers -> 16 numbers after YOKE_MANIP_ROTATE",
          "9: no keyword -> the keyword of a manipulator after ACTION, then its values and names",
          "10: 0 names -> 1 name in ACTION axis_knob", "11: 0 numbers -> numbers before the 1 name in ACTION axis_knob",
          "12: 1 number -> no numbers before the 2 names in ACTION command_knob"}},
        {"A\n1100\nVRCONFIG\nBEGIN_TELEPORT_HOTSPOT SITTING\nAABB 1 2 3 4 5\nPRESET_XYZ 1 2 3 4\nPRESET_PSI "
         "0\nPRESET_PSI 0\n"
         "PRESET_PHI 0\nEND_TELEPORT_HOTSPOT",
         {"4: no name -> SITTING and the name of the place", "5: 5 numbers -> 6 numbers after AABB",
          "6: 4 numbers -> 3 numbers after PRESET_XYZ", "8: a second PRESET_PSI -> one in each hotspot",
          "4: no PRESET_THE in this hotspot -> one"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FaultsOf(ParseVrConfig(row.text)), row.faults) << row.text;
    std::string many;
    for (int i = 0; i < 1200; ++i)
        many += "END_MANIP\nX\n";
    const VrConfigFile file = Parse(many);
    EXPECT_EQ(std::tuple(file.faults.size(), file.moreFaults, file.unknown.size(), file.moreUnknown),
              std::tuple(1000u, 200u, 1000u, 200u));
}

TEST(VrConfigFile, TellsTheKindOfABlock) {
    using enum TouchInteractionType;
    const struct {
        const char* block;
        const char* cursor;
        std::optional<TouchInteractionType> kind;
    } rows[] = {
        {"command_knob a b", "hand", Twist},
        {"axis_knob a\nACTION command_axis 0 0 1 a b", "hand", Move},
        {"toggle a\nACTION axis_knob 0 1 1 a", "hand", Twist},
        {"command_switch_up_down a b", "hand", Move},
        {"axis_switch_up_down a", "rotate_small", Twist},
        {"drag_xy a b", "hand", YokePart},
        {"drag_axis a", "rotate_small", std::nullopt},
        {"drag_axis a\nDEG_PER_ACTION 3", "hand", Twist},
        {"drag_axis_pix a\nDEG_PER_ACTION 3", "hand", std::nullopt},
        {"push a\nDEG_PER_ACTION 3", "hand", std::nullopt},
        {"later a", "hand", std::nullopt},
    };
    for (const auto& row : rows) {
        const VrConfigFile file = Parse("BEGIN_MANIP " + std::string(row.block) + "\nEND_MANIP\n");
        Manipulator manipulator;
        manipulator.cursor = row.cursor;
        EXPECT_EQ(VrConfigKind(file.blocks.at(0), manipulator), row.kind) << row.block;
    }
}

} // namespace
} // namespace CockpitModel
