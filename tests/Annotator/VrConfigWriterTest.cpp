#include "Annotator/VrConfigWriter.h"

#include "Annotator/Lint/VrConfigCheck.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/XPAircraftListLoader.h"
#include "Support/Installation.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <optional>
#include <sstream>

namespace Annotator {
namespace {

using testing::HasSubstr;
using testing::Not;

/// An aircraft whose eye is at (-0.5, 1, 2) m and whose centre of gravity at (0, 0.5, 3) m. The lines of its cockpit
/// object follow a texture and one triangle.
struct Aircraft {
    explicit Aircraft(const std::string& lines, const std::string& overrides = {}) {
        const Support::WorkingDirectory inside(installation.path);
        installation.Write("Aircraft/Props/Cub/plane_cockpit.obj", Support::ObjText().Texture().Line(lines).Text());
        installation.Aircraft("Aircraft/Props/Cub", "Cub", acf);
        const auto list = Sim::XPAircraftListLoader().LoadAircraftList();
        aircraft = LoadAircraft(*list.at(0), {.reading = CockpitModel::Reading::Full});
        annotations.emplace(*aircraft.built.sceneGraph);
        installation.Annotations("Cub", overrides);
        annotations->Read("QVRA/Annotations/Cub.xml");
    }

    VrConfigText Make() const { return MakeVrConfig(aircraft, *annotations, CockpitModel::ReadAcfPoints(acf)); }
    VrConfigText Merge(const std::string& text) const {
        return MergeVrConfig(aircraft, *annotations, CockpitModel::ReadAcfPoints(acf), text);
    }

    /// What the check finds in a text that is no note.
    std::string Complaints(const std::string& text) const {
        const Support::WorkingDirectory inside(installation.path);
        installation.Write("Aircraft/Props/Cub/plane_vrconfig.txt", text);
        std::string complaints;
        for (const LintFinding& finding : CheckVrConfig(*Sim::XPAircraftListLoader().LoadAircraftList().at(0)))
            if (finding.severity != LintSeverity::Note)
                complaints += std::to_string(finding.line) + ": " + finding.message + "\n";
        return complaints;
    }

    // In feet: 0.5, 1, 2 and 3 m.
    const std::string acf = "P acf/_pe_xyz/0 -1.6404199\nP acf/_pe_xyz/1 3.2808399\nP acf/_pe_xyz/2 6.5616798\n"
                            "P acf/_cgY 1.6404199\nP acf/_cgZ 9.8425197\n";
    const Support::Installation installation;
    LoadedAircraft aircraft;
    std::optional<CockpitModel::AnnotationStore> annotations;
};

/// The lines from the first block on, without comments.
std::string Blocks(const std::string& text) {
    std::string blocks;
    std::istringstream lines(text.substr(std::min(text.find("BEGIN_MANIP"), text.size())));
    for (std::string line; std::getline(lines, line);)
        if (!line.empty() && line[0] != '#')
            blocks += line + "; ";
    return blocks;
}

std::string Override(const std::string& type) {
    return "<Override><NodeId>0</NodeId><PartId>0</PartId><InteractionType>" + type +
           "</InteractionType><Tooltip>Ours</Tooltip></Override>";
}

// DEG_PER_ACTION is degrees x step / (v2 - v1): 270 x 1 / 9, 360 x 5 / 100 of 100 / 360 of its turn, 900 x 0.5 / 10,
// 540 x 0.1 / 1, 90 / 20, 300 / 20.
TEST(VrConfigWriterTest, TellsHowFarAKnobTurnsOrThatItGuesses) {
    const std::string turn = "ANIM_begin\nANIM_rotate 0 0 1 0 ", tris = "\nTRIS 0 3\nANIM_end";
    const struct {
        const char* name;
        std::string lines, blocks;
        std::size_t guesses;
        std::string overrides = {};
    } rows[] = {
        {"a step of the keyword", turn + "270 0 9 sim/n\nATTR_manip_axis_knob rotate_small 0 9 1 1 sim/n" + tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 30; ", 0},
        {"another range", turn + "-360 0 360 sim/n\nATTR_manip_axis_knob rotate_small 0 100 5 1 sim/n" + tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 5; ", 0},
        {"long turns between key frames",
         "ANIM_begin\nANIM_rotate_begin 1 0 0 sim/n\nANIM_rotate_key 10 900\nANIM_rotate_key 0 0\nANIM_rotate_key 5 "
         "300\n"
         "ANIM_rotate_end\nATTR_manip_axis_knob hand 0 10 0.5 1 sim/n" +
             tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 45; ", 0},
        {"another dataref", turn + "90 0 1 sim/m\nATTR_manip_axis_knob hand 0 1 0.1 1 sim/n" + tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 15; ", 1},
        {"a slide", "ANIM_begin\nANIM_trans 0 0 0 1 0 0 0 1 sim/n\nATTR_manip_axis_knob hand 0 1 0.1 1 sim/n" + tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 15; ", 1},
        {"a drag", turn + "90 0 1 sim/n\nATTR_manip_drag_axis rotate_small 1 0 0 1 0 sim/n" + tris,
         "drag_axis sim/n; \tACTION axis_knob 1 0 -0.05 sim/n; \tDEG_PER_ACTION 4.5; ", 0},
        {"a drag with a step", turn + "300 0 1 sim/n\nATTR_manip_drag_axis_pix rotate_small 9 0.1 1 0 1 sim/n" + tris,
         "drag_axis_pix sim/n; \tACTION axis_knob 0 1 0.1 sim/n; \tDEG_PER_ACTION 30; ", 0},
        {"two of one name, only the second below its rotation",
         "ATTR_manip_axis_knob hand 0 9 1 1 sim/n\nTRIS 0 3\n" + turn + "270 0 9 sim/n" + tris,
         "axis_knob sim/n; \tDEG_PER_ACTION 30; ", 0},
        {"commands", "ATTR_manip_command_knob hand a/up a/down\nTRIS 0 3",
         "command_knob a/up a/down; \tDEG_PER_ACTION 15; ", 1},
        {"a lever that turns by its cursor", "ATTR_manip_command_axis rotate_small 1 0 0 a/up a/down\nTRIS 0 3",
         "command_axis a/up a/down; \tACTION command_knob a/up a/down; \tDEG_PER_ACTION 15; ", 1},
        {"a placeholder", "ATTR_manip_drag_rotate rotate_small 1 2 3 0 0 1 0 90 0 0 1 0 1 sim/n no_ref\nTRIS 0 3",
         "drag_rotate sim/n none; \tDEG_PER_ACTION 15; ", 1},
        {"no names", "ATTR_manip_command_knob hand a/up\nTRIS 0 3", "", 0},
        {"a button that the user twists", "ATTR_manip_toggle hand 0 2 sim/n\nTRIS 0 3",
         "toggle sim/n; \tACTION axis_knob 0 2 2 sim/n; \tDEG_PER_ACTION 15; ", 1, Override("Twist")},
        {"a command that the user twists", "ATTR_manip_command hand a/do\nTRIS 0 3",
         "command a/do; \tACTION command_knob2 a/do; \tDEG_PER_ACTION 15; ", 1, Override("Twist")},
        {"no knob can do it", "ATTR_manip_radio hand 1 sim/n\nTRIS 0 3", "", 0, Override("Twist")},
        {"a knob that the user taps", "ATTR_manip_command_knob hand a/up a/down\nTRIS 0 3", "", 0, Override("Tap")},
    };
    for (const auto& row : rows) {
        const Aircraft aircraft(row.lines, row.overrides);
        const VrConfigText made = aircraft.Make();
        EXPECT_EQ(aircraft.Complaints(made.text), "") << row.name;
        EXPECT_EQ(Blocks(made.text), row.blocks.empty() ? "" : "BEGIN_MANIP " + row.blocks + "END_MANIP; ") << row.name;
        EXPECT_EQ(made.blocks, row.blocks.empty() ? 0u : 1u) << row.name;
        EXPECT_EQ(made.guesses, row.guesses) << row.name;
    }
}

TEST(VrConfigWriterTest, SaysWhereAControlIs) {
    const VrConfigText made = Aircraft("ATTR_manip_command_knob hand a/up a/down A knob\nTRIS 0 3").Make();
    EXPECT_TRUE(made.text.starts_with("A\n1100\nVRCONFIG\n\n"));
    EXPECT_THAT(made.text, HasSubstr("REF_POINT_ACF\n"));
    EXPECT_THAT(made.text, HasSubstr("# A knob: plane_cockpit.obj, line 12\n# DEG_PER_ACTION is a guess"));
    EXPECT_THAT(made.text, HasSubstr("BEGIN_TELEPORT_HOTSPOT SITTING Pilot's Seat\n"
                                     "\tAABB -0.8 0.3 1.5 -0.2 1.1 2.1\n\tPRESET_XYZ -0.5 1 2\n\tPRESET_PSI 0\n"));
    EXPECT_THAT(Aircraft("ATTR_manip_toggle hand 0 2 sim/n Theirs\nTRIS 0 3", Override("Twist")).Make().text,
                HasSubstr("# Ours: plane_cockpit.obj, line 12\n"));
}

/// A yoke below these steps: 0.5 m to the right and 1 m forward, pitch, 0.3 m up, roll.
std::string Yoke(const std::string& before, const std::string& sign = "") {
    return "ANIM_begin\n" + before + "ANIM_trans " + sign + "0.5 0 -1 " + sign +
           "0.5 0 -1 0 0 none\nANIM_rotate 1 0 0 -10 20 -1 1 sim/x/yoke_pitch_ratio\n"
           "ANIM_trans 0 0.3 0 0 0.3 0 0 0 none\nANIM_rotate 0 0 -1 90 -90 1 -1 sim/x/yoke_roll_ratio\n"
           "ATTR_manip_drag_xy hand 9 9 -1 1 1 -1 sim/x/yoke_roll_ratio sim/x/yoke_pitch_ratio Yoke\nTRIS 0 "
           "3\nANIM_end\n";
}

// A quarter turn about y takes x to -z and z to x.
TEST(VrConfigWriterTest, StatesTheRotationsOfAYokeInTheAircraft) {
    const std::string block = "BEGIN_MANIP drag_xy sim/x/yoke_roll_ratio sim/x/yoke_pitch_ratio; \tYOKE_MANIP_ROTATE ";
    EXPECT_EQ(Blocks(Aircraft(Yoke("")).Make().text),
              block + "0.5 0 -1 1 0 0 -10 20 0.5 0.3 -1 0 0 -1 -90 90; END_MANIP; ");
    EXPECT_EQ(Blocks(Aircraft(Yoke("ANIM_rotate 0 1 0 90 90 0 0 none\n")).Make().text),
              block + "-1 0 -0.5 0 0 -1 -10 20 -1 0.3 -0.5 -1 0 0 -90 90; END_MANIP; ");
    std::string slides = Yoke("");
    slides.replace(slides.find("rotate 1 0 0 -10 20"), 19, "trans 0 0 0 0 0 1");
    EXPECT_EQ(Aircraft(slides).Make().blocks, 0u);
}

TEST(VrConfigWriterTest, AddsASeatForAMirroredYoke) {
    EXPECT_EQ(Aircraft(Yoke("")).Make().hotspots, 1u);
    // The triangle's middle is 1/3 m to the right of each yoke.
    const std::string moved = "ANIM_trans 0.6666 0 0 0.6666 0 0 0 0 none\n",
                      far = "ANIM_trans 0 0 0.2 0 0 0.2 0 0 none\n";
    EXPECT_EQ(Aircraft(Yoke(moved) + Yoke("", "-")).Make().hotspots, 1u) << "1.1666 + 1/3 m, and -0.5 + 1/3 m";
    const std::string left = "ANIM_trans -0.6667 0 0 -0.6667 0 0 0 0 none\n";
    const VrConfigText made = Aircraft(Yoke("") + Yoke(left, "-")).Make(); // 0.8333 m, and -0.8334 m
    EXPECT_EQ(made.hotspots, 2u);
    EXPECT_THAT(made.text, HasSubstr("SITTING Copilot's Seat\n\tAABB 0.2 0.3 1.5 0.8 1.1 2.1\n\tPRESET_XYZ 0.5 1 2\n"));
    EXPECT_EQ(Aircraft(Yoke("") + Yoke(left + far, "-")).Make().hotspots, 1u);
}

TEST(VrConfigWriterTest, AddsToAnAuthorsTextWhatItLacks) {
    const Aircraft aircraft(Yoke("") + "ATTR_manip_command_knob hand a/up a/down\nTRIS 0 3\n"
                                       "ATTR_manip_command_knob hand b/up b/down\nTRIS 0 3");
    const std::string text =
        "A\r\n1100\r\nVRCONFIG\r\n# \xE9 mine\r\n\r\nBEGIN_MANIP command_knob  b/up\tb/down more\r\n"
        "\tFUTURE_WORD\r\nEND_MANIP";
    const VrConfigText merged = aircraft.Merge(text);
    EXPECT_EQ((std::array{merged.hotspots, merged.blocks, merged.guesses}), (std::array<std::size_t, 3>{1, 2, 1}));
    ASSERT_TRUE(merged.text.starts_with(text + "\r\n\r\n#"));
    const std::string added = merged.text.substr(text.size());
    EXPECT_EQ(std::ranges::count(added, '\r'), std::ranges::count(added, '\n'));
    EXPECT_THAT(added, Not(HasSubstr("REF_POINT_ACF")));
    EXPECT_THAT(added, HasSubstr("PRESET_XYZ -0.5 0.5 -1\r")) << "from the centre of gravity";
    EXPECT_THAT(added, HasSubstr("YOKE_MANIP_ROTATE 0.5 -0.5 -4 1 0 0 "));
    EXPECT_EQ(aircraft.Merge(merged.text).text, merged.text);
    EXPECT_EQ(aircraft.Complaints(merged.text), "");
    EXPECT_THAT(aircraft.Merge("A\n1100\nVRCONFIG\nREF_POINT_ACF\n").text, HasSubstr("PRESET_XYZ -0.5 1 2\n"));
    EXPECT_THROW(aircraft.Merge("A\n1100\nVRCONFIG\nBEGIN_MANIP toggle a\n"), std::runtime_error);
}

} // namespace
} // namespace Annotator
