#include "Annotator/Lint/VrConfigCheck.h"

#include "Sim/XPAircraftListLoader.h"
#include "Support/Installation.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace Annotator {
namespace {

using Support::ObjText;
using testing::ElementsAre;
using testing::HasSubstr;

/// One of each mechanism. The first manipulator is in line 12.
ObjText Panel() {
    ObjText object = ObjText().Texture();
    for (const char* line :
         {"command_knob rotate_small x/heading_up x/heading_dn Heading", "toggle hand 0 1 x/battery",
          "drag_axis rotate_medium 0 1 0 0 1 x/dimmer", "drag_axis hand 0 1 0 0 1 x/flaps",
          "command_switch_up_down hand x/lights_up x/lights_dn", "command_axis rotate_large 0 0 1 x/trim_up x/trim_dn",
          "drag_xy hand 1 1 -1 1 -1 1 sim/joystick/yoke_roll_ratio sim/joystick/yoke_pitch_ratio"})
        object.Line(std::string("ATTR_manip_") + line).Tris();
    return object;
}

/// An aircraft with the panel, its eye 10 feet above the reference point and its centre of gravity 20 feet behind it.
class VrConfigCheckTest : public testing::Test {
protected:
    VrConfigCheckTest() {
        installation.Aircraft(kFolder, "Cub", acf);
        installation.Write(kFolder + std::string("/plane_cockpit.obj"), Panel().Text());
    }

    std::vector<LintFinding> Check(const std::string& body, const std::string& name = "plane_vrconfig.txt") {
        installation.Write(kFolder + ("/" + name), "A\n1100\nVRCONFIG\n" + body);
        return CheckVrConfig(*Sim::XPAircraftListLoader().LoadAircraftList().front());
    }

    static constexpr const char* kFolder = "Aircraft/Props/Cub";
    const std::string acf = "P acf/_cgZ 20\nP acf/_pe_xyz/0 0\nP acf/_pe_xyz/1 10\nP acf/_pe_xyz/2 0\n";
    Support::Installation installation;
    Support::WorkingDirectory inside{installation.path.string()};
};

/// Lines 4 to 10. The eye is 3.048 m up and 6.096 m before the centre of gravity.
std::string Seat(const std::string& head = "0 3.048 -6.096", const std::string& box = "-1 2 -7 1 4 -5") {
    return "BEGIN_TELEPORT_HOTSPOT SITTING Pilot\nAABB " + box + "\nPRESET_XYZ " + head +
           "\nPRESET_PSI 0\nPRESET_THE 0\nPRESET_PHI 0\nEND_TELEPORT_HOTSPOT\n";
}

/// From line 11 on.
std::string Block(const std::string& names, const std::string& directives = {}) {
    return "BEGIN_MANIP " + names + "\n" + directives + "END_MANIP\n";
}

/// "severity check@line".
std::vector<std::string> Places(const std::vector<LintFinding>& findings) {
    std::vector<std::string> places;
    for (const LintFinding& finding : findings)
        places.push_back(std::string(LintSeverityText(finding.severity)) + " " + finding.check + "@" +
                         std::to_string(finding.line));
    return places;
}

/// Without the notes on missing blocks, which most files of these tests get.
std::vector<LintFinding> OfBlocks(std::vector<LintFinding> findings) {
    std::erase_if(findings, [](const LintFinding& finding) { return finding.check == "block-missing"; });
    return findings;
}

TEST_F(VrConfigCheckTest, FindsWhatDoesNotFitTheCockpit) {
    const std::string yoke = "drag_xy sim/joystick/yoke_roll_ratio sim/joystick/yoke_pitch_ratio";
    const std::string sixteen = "YOKE_MANIP_ROTATE 0 0 0 1 0 0 -10 10 0 0 0 0 0 1 -90 90\n";
    const struct {
        std::string text;
        std::vector<std::string> places;
        const char* message = ""; ///< part of the first message
    } rows[] = {
        {Seat() + Block("command_knob x/heading_up x/heading_dn Heading", "DEG_PER_ACTION 15\n") +
             Block("drag_axis x/dimmer", "ACTION axis_knob 0 1 0.05 x/dimmer\nDEG_PER_ACTION 15\n") +
             Block("command_switch_up_down x/lights_up x/lights_dn", "HOLD_MANIP\n") +
             Block("command_axis x/trim_up x/trim_dn", "DEG_PER_ACTION 5\n") + Block(yoke, sixteen),
         {}},
        {"REF_POINT_ACF\n" + Seat("0.3 3.3 0.2", "-1 2 -1 1 4 1"), {}},
        {Seat("0.3 3.348 -5.796", "-1 2 -7 1 4 -5"), {"warning pilot-hotspot@6"}, "0.52 m away"},
        {Seat("0 3.048 0", "-1 2 -1 1 4 1"), {"warning pilot-hotspot@6"}, "but fits the reference point"},
        {"REF_POINT_ACF\n" + Seat(), {"warning pilot-hotspot@7"}, "but fits the centre of gravity"},
        {"", {"warning pilot-hotspot@0"}, "the pilot's eye at 0.00 3.05 -6.10"},
        {Seat("0 3.048 -6.096", "-1 4 -7 1 2 -6.1"), {"warning hotspot-box@6"}, "outside its AABB in y, z"},
        {Seat() + Block("command_knob x/heading_up x/heading_down"),
         {"warning block-unmatched@11"},
         "did you mean 'command_knob x/heading_up x/heading_dn' of Aircraft/Props/Cub/plane_cockpit.obj, line 12?"},
        {Seat() + Block("command_knob x/lights_up x/lights_dn"),
         {"warning block-unmatched@11"},
         "did you mean 'command_switch_up_down x/lights_up x/lights_dn'"},
        {Seat() + Block("command_knob x/heading_dn x/heading_up"),
         {"warning block-unmatched@11"},
         "x/heading_up x/heading_dn'"},
        {Seat() + Block("command_knob sim/unrelated/one sim/unrelated/two"),
         {"warning block-unmatched@11"},
         "no draw call"},
        {Seat() + Block("toggle x/battery") + Block("toggle x/battery"), {"warning block-twice@13"}, "line 11 begins"},
        {Seat() + Block("toggle x/battery", "DEG_PER_ACTION 30\n"),
         {"warning block-contradiction@12"},
         "toggle is a button"},
        {Seat() + Block("toggle x/battery", "ACTION axis_knob 0 1 1 x/battery\n"),
         {"warning block-contradiction@12"},
         "ACTION axis_knob is for the type Twist, but toggle with the cursor hand"},
        {Seat() + Block("drag_axis x/dimmer", "ACTION toggle 0 1 x/dimmer\n"),
         {"warning block-contradiction@12"},
         "is Twist"},
        {Seat() + Block("drag_axis x/flaps", "DEG_PER_ACTION 5\n"), {"warning block-contradiction@12"}, "is Move"},
        {Seat() + Block("drag_axis x/flaps", sixteen), {"warning block-contradiction@12"}, "the type YokePart"},
        {Seat() + Block("drag_axis x/dimmer", "ACTION axis_nob 0 1 .1 x/dimmer\n"),
         {"warning unknown-action@12"},
         "mean axis_knob?"},
        {Seat() + Block("drag_axis x/dimmer", "ACTION of_tomorrow 1 x/dimmer\n"), {"note unknown-action@12"}},
        {Seat() + "BEGIN_MANP toggle x/battery\n", {"note unknown-directive@11"}, "did you mean BEGIN_MANIP?"},
        {Seat() + Block("toggle x/battery", "SOMETHING_NEW 1\n"),
         {"note unknown-directive@12"},
         "not known to this version"},
        {Seat() + "END_MANIP\n" + Block("toggle x/battery", "DEG_PER_ACTION x\n"),
         {"error vr-nesting@11", "error vr-values@13", "warning block-contradiction@13"},
         "found END_MANIP, needed BEGIN_MANIP before it"},
    };
    for (const auto& row : rows) {
        const std::vector<LintFinding> findings = OfBlocks(Check(row.text));
        EXPECT_EQ(Places(findings), row.places) << row.text;
        const auto first =
            std::ranges::find_if(findings, [](const auto& found) { return found.check != "block-missing"; });
        EXPECT_THAT(first == findings.end() ? "" : first->message, HasSubstr(row.message)) << row.text;
    }
}

TEST_F(VrConfigCheckTest, NotesControlsThatABlockWouldImprove) {
    const std::vector<LintFinding> findings = Check(Seat() + Block("drag_axis x/dimmer"));
    EXPECT_THAT(Places(findings),
                ElementsAre("note block-missing@12", "note block-missing@22", "note block-missing@24"));
    EXPECT_THAT(findings.at(0).message, HasSubstr("'Heading', command_knob x/heading_up x/heading_dn (Twist)"));
    EXPECT_THAT(findings.at(2).message, HasSubstr("(YokePrimary)"));
}

TEST_F(VrConfigCheckTest, LetsAnnotationsCorrectTheType) {
    installation.Write("QVRA/Annotations/full/Cub.xml",
                       "<Overrides><Override><NodeId>0</NodeId><PartId>3</PartId>"
                       "<InteractionType>Twist</InteractionType></Override></Overrides>");
    EXPECT_THAT(Places(OfBlocks(Check(Seat() + Block("drag_axis x/flaps", "DEG_PER_ACTION 5\n")))), ElementsAre());
}

TEST_F(VrConfigCheckTest, NotesAMissingFileAndWarnsOfItsCase) {
    const auto missing = CheckVrConfig(*Sim::XPAircraftListLoader().LoadAircraftList().front());
    EXPECT_THAT(Places(missing), ElementsAre("note no-vrconfig@0"));
    EXPECT_THAT(missing.at(0).message, HasSubstr("; 4 controls would work better"));
    EXPECT_THAT(Places(OfBlocks(Check(Seat(), "Plane_VRconfig.txt"))), ElementsAre("warning vrconfig-case@0"));
}

/// Without an object a block may stand for something in it; without any cockpit the text is still checked.
TEST_F(VrConfigCheckTest, ChecksWhatItCanRead) {
    installation.Aircraft(kFolder, "Cub", acf + "P _obja/0/_v10_att_file_stl gone.obj\n");
    const std::vector<LintFinding> findings = OfBlocks(Check(Seat() + Block("toggle x/batery") + "END_MANIP\n"));
    EXPECT_THAT(Places(findings), ElementsAre("error vr-nesting@13", "note block-unmatched@11"));
    EXPECT_THAT(findings.back().message,
                HasSubstr("attached object could not be read; did you mean 'toggle x/battery'"));
    boost::filesystem::remove(installation / (kFolder + std::string("/plane_cockpit.obj")));
    EXPECT_THAT(Places(Check(Seat() + "END_MANIP\n")), ElementsAre("error not-loaded@0", "error vr-nesting@11"));
}

} // namespace
} // namespace Annotator
