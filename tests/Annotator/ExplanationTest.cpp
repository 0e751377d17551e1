#include "Annotator/Explanation.h"

#include "Annotator/AircraftLoading.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/Installation.h"

#include <cmath>
#include <gmock/gmock.h>

namespace Annotator {
namespace {

using CockpitModel::NodePart;
using CockpitModel::Reading;
using testing::ContainsRegex;
using testing::HasSubstr;

/// A cockpit of these lines after a pool: vertices 3 to 5 are around the origin, 6 to 8 too but two of them 0.2 m away,
/// 9 to 11 on one side of it. IDX lists them in order after 0 1 2, the last three 3 times. TEXTURE is in line 22.
struct Cockpit {
    explicit Cockpit(const std::string& lines, Reading reading = Reading::Plain) {
        const Support::WorkingDirectory inside(installation.path);
        Support::ObjText object;
        for (const char* corner : {"0.02 0 0", "-0.02 0 0", "0 0.02 0", "0.2 0 0", "-0.2 0 0", "0 0.05 0", "0.1 0 0",
                                   "0.1 0.01 0", "0.09 0 0"})
            object.Line(std::string("VT ") + corner + " 0 0 1 0 0");
        object.Line("IDX10 3 4 5 6 7 8").Line("IDX10 9 10 11 9 10 11 9 10 11").Texture().Line(lines);
        installation.Aircraft("Aircraft/Props/Cub", "Cub", object);
        const auto list = Sim::XPAircraftListLoader().LoadAircraftList();
        aircraft = LoadAircraft(*list.at(0), {.reading = reading});
    }

    NodePart& Part(std::size_t node) const { return *aircraft.built.sceneGraph->Nodes().at(node)->parts.at(0); }
    std::string Text(std::size_t node) const { return ExplanationText(*aircraft.built.sceneGraph, Part(node)); }

    const Support::Installation installation;
    LoadedAircraft aircraft;
};

const std::string kDrag = "ATTR_manip_drag_axis hand 1 0 0 0 1 sim/x\n";
const std::string kTurn = "ANIM_rotate 0 0 1 0 90 0 1 sim/turn\n";
const std::string kRoll = "ANIM_rotate 0 0 1 0 90 0 1 sim/cockpit2/controls/yoke_roll_ratio\n";
const std::string kPitch = "ANIM_trans 0 0 0 0 0 0 0 1 sim/cockpit2/controls/yoke_pitch_ratio\n";

// A quarter turn about z has the vector sin(45) along z: the mask (1, 1, 0.29289) over its length 1.44423 is (0.69241,
// 0.69241, 0.20280), which weights the corners. Vertices 3 to 5 sum to 0.02 x 0.69241 = 0.01385 and reach as far. 6 to
// 8 sum to 0.05 x 0.69241 = 0.03462 and reach 0.2 x 0.69241 = 0.13848. 9 to 11, three times, sum to 3 x (0.29, 0.01) x
// 0.69241 = (0.60240, 0.02077), which is 0.60276 long. 0 to 2 sum to (0.69241, 0.69241), which is 0.97922 long, and
// reach 0.69241.
TEST(ExplanationTest, StatesTheRuleItsValuesAndWhatWouldChangeIt) {
    const struct {
        const char* name;
        std::string lines;
        std::size_t node;
        const char* type;
        const char* because; ///< regular expressions
        const char* change;
        Reading reading = Reading::Plain;
    } rows[] = {
        {"nothing to click", "TRIS 0 3", 0, "None", "no manipulator and no yoke animation at or above it, so None",
         "ATTR_manip_toggle makes it Tap, ATTR_manip_drag_axis Twist or Move$"},
        {"roll alone", "ANIM_begin\n" + kRoll + "TRIS 0 3\nANIM_end", 1, "None",
         "only the roll animation of a yoke at or above it, so None",
         "controls/yoke_pitch_ratio at or above it makes it a yoke$"},
        {"pitch alone, above it", "ANIM_begin\n" + kPitch + "ANIM_begin\n" + kTurn + "TRIS 0 3\nANIM_end\nANIM_end", 2,
         "None", "only the pitch animation of a yoke at or above it, so None",
         "controls/yoke_roll_ratio at or above it makes it a yoke$"},
        {"a toggle", "ANIM_begin\n" + kTurn + "ATTR_manip_toggle hand 0 1 sim/x\nTRIS 0 3\nANIM_end", 1, "Tap",
         "fires an event when clicked, so Tap", "ATTR_manip_drag_axis instead of its toggle makes it Twist or Move"},
        {"a drag on the root", kDrag + "TRIS 0 3", 0, "Twist",
         "its node has no animation and BalanceFactor 0 is not above 0.3, so Twist",
         "an animation block of its own that does not rotate makes it Move"},
        {"a knob", "ANIM_begin\n" + kTurn + kDrag + "TRIS 3 3\nANIM_end", 1, "Twist",
         "it rotates, BalanceFactor 0.01384[0-9]* is not above 0.3 and SweepRadius 0.01384[0-9]* is not above 0.1, so "
         "Twist",
         "a SweepRadius above 0.1, a BalanceFactor above 0.3 or an animation that does not rotate makes it Move"},
        {"a slider", "ANIM_begin\nANIM_trans 0 0 0 0 0 1 0 1 sim/x\n" + kDrag + "TRIS 3 3\nANIM_end", 1, "Move",
         "the animation of its node does not rotate, so Move, not Twist", "an ANIM_rotate as the last step"},
        {"a block without steps", "ANIM_begin\n" + kDrag + "TRIS 3 3\nANIM_end", 1, "Move", "does not rotate, so Move",
         "an ANIM_rotate as the last step"},
        {"a lever", "ANIM_begin\n" + kTurn + kDrag + "TRIS 9 9\nANIM_end", 1, "Move",
         "BalanceFactor 0.6027[0-9]* is above 0.3, so Move, not Twist", "evenly around the axis, makes it Twist$"},
        {"a lever that is also wide", "ANIM_begin\n" + kTurn + kDrag + "TRIS 0 3\nANIM_end", 1, "Move",
         "BalanceFactor 0.979[0-9]* is above 0.3, so Move, not Twist",
         "makes it Twist, if its SweepRadius is also reduced to 0.1$"},
        {"a wide wheel", "ANIM_begin\n" + kTurn + kDrag + "TRIS 6 3\nANIM_end", 1, "Move",
         "SweepRadius 0.1384[0-9]* is above 0.1, so Move, not Twist", "stays within 0.1 m of its axis"},
        {"the only yoke", "ANIM_begin\n" + kRoll + kPitch + "TRIS 3 3\nANIM_end", 2, "YokePrimary",
         "no manipulator, but roll and pitch animations of a yoke at or above it, so a yoke",
         "with a manipulator before its TRIS it is not a yoke$"},
        {"a button", "ATTR_manip_push hand 0 1 a/b\nTRIS 3 3", 0, "Tap", "ATTR_manip_push is a button, so Tap",
         "a knob makes it Twist", Reading::Full},
        {"a knob by its keyword", "ATTR_manip_command_knob hand a/up a/down\nTRIS 3 3", 0, "Twist",
         "ATTR_manip_command_knob is a knob, so Twist", "a button makes it Tap", Reading::Full},
        {"a turned cursor", "ATTR_manip_command_axis rotate_large 0 1 0 a/up a/down\nTRIS 3 3", 0, "Twist",
         "command_axis has the cursor rotate_large, which begins with rotate, so Twist", "makes it Move$",
         Reading::Full},
        {"a switch", "ATTR_manip_axis_switch_up_down up_down 0 1 1 1 a/b\nTRIS 3 3", 0, "Move",
         "is a switch and its cursor up_down does not begin with rotate, so Move", "makes it Twist; ", Reading::Full},
        {"a drag in a plane", "ATTR_manip_drag_xy hand 1 1 0 1 0 1 a/b a/c\nTRIS 3 3", 0, "Move",
         "drags a/b and a/c, which are not the roll and the pitch of a yoke, so Move", "make it a yoke$",
         Reading::Full},
        {"a dragged yoke", "ATTR_manip_drag_xy hand 1 1 0 1 0 1 a/FC_roll a/FC_ptch\nTRIS 3 3", 0, "YokePrimary",
         "drags a/FC_roll and a/FC_ptch, the roll and the pitch of a yoke, so a yoke", "other datarefs it is Move$",
         Reading::Full},
        {"a shield", "ATTR_manip_noop\nTRIS 3 3", 0, "None", "no manipulator that is touched and no yoke animation",
         "keyword and cursor decide", Reading::Full},
    };
    for (const auto& row : rows) {
        const std::string text = Cockpit(row.lines, row.reading).Text(row.node);
        const auto line = [&](const std::string& heading) {
            const std::size_t start = text.find(heading);
            return start == text.npos ? "nothing" : text.substr(start, text.find('\n', start) - start);
        };
        EXPECT_TRUE(line("part ").ends_with(std::string(" is ") + row.type)) << row.name << ":\n" << text;
        EXPECT_THAT(line("because:"), ContainsRegex(row.because)) << row.name;
        EXPECT_THAT(line("what would change it:"), ContainsRegex(row.change)) << row.name;
    }
}

TEST(ExplanationTest, ShowsAValueThatIsBarelyAboveItsLimitWithAllDigits) {
    const Cockpit cockpit("ANIM_begin\n" + kTurn + kDrag + "TRIS 3 3\nANIM_end");
    NodePart& part = cockpit.Part(1);
    part.BalanceFactor = 0.3f;
    part.SweepRadius = 0.1f;
    EXPECT_THAT(cockpit.Text(1), HasSubstr("BalanceFactor 0.3 is not above 0.3 and SweepRadius 0.1 is not above 0.1"));
    // The 32-bit floats nearest to 0.3 are 2^-25 apart: 0.300000012 and 0.300000042.
    part.BalanceFactor = std::nextafter(0.3f, 1.0f);
    EXPECT_THAT(cockpit.Text(1), HasSubstr("BalanceFactor 0.300000042 is above 0.3"));
    part.BalanceFactor = 1e-9f;
    part.SweepRadius = std::nanf("");
    EXPECT_THAT(cockpit.Text(1), HasSubstr("BalanceFactor 0 is not above 0.3 and SweepRadius nan is not above 0.1"));
}

TEST(ExplanationTest, ListsTheScoresOfAllYokesOrOfTheBestAndThePartItself) {
    const auto yokeAt = [](int right) {
        const std::string x = std::to_string(right) + " 0 0 ";
        return "ANIM_begin\nANIM_trans " + x + x + "0 1 sim/cockpit2/controls/yoke_roll_ratio\n" + kPitch +
               "TRIS 0 3\nANIM_end\n";
    };
    // Without motion a corner at 1 sweeps 1 / sqrt(3), and the axis tip is the node's origin. The parts belong to the
    // nodes of the second steps, after those of the first.
    const Cockpit two(yokeAt(2) + yokeAt(0));
    EXPECT_THAT(two.Text(3), HasSubstr("    5.7735  part 4,0, the primary yoke\n    3.7735  part 3,0\n"));
    EXPECT_THAT(two.Text(3), HasSubstr("a yoke; a score above 5.7735, that of part 4,0, makes it YokePrimary\n"));
    EXPECT_THAT(two.Text(4), HasSubstr("a yoke; a score below 3.7735, that of part 3,0, makes it YokePart\n"));
    std::string yokes;
    for (int i = 0; i < 12; ++i)
        yokes += yokeAt(i);
    const std::string text = Cockpit(yokes).Text(24);
    for (const char* shown : {"part 13,0, the primary yoke\n", "part 22,0\n", "part 24,0\n    of 12 in total\n"})
        EXPECT_THAT(text, HasSubstr(shown));
    EXPECT_THAT(text, testing::Not(HasSubstr("part 23,0\n")));
}

} // namespace
} // namespace Annotator
