#include "Annotator/Lint/Lint.h"

#include "Sim/XPAircraftListLoader.h"
#include "Support/Installation.h"

#include <gmock/gmock.h>

namespace Annotator {
namespace {

using Support::ObjText;
using testing::ElementsAre;
using testing::HasSubstr;

/// "check@line", for each finding.
std::vector<std::string> Places(const std::vector<LintFinding>& findings) {
    std::vector<std::string> places;
    for (const LintFinding& finding : findings)
        places.push_back(finding.check + "@" + std::to_string(finding.line));
    return places;
}

std::vector<LintFinding> Lint(const ObjText& object) {
    return LintObject("plane_cockpit.obj", object.Text());
}

TEST(LintTest, ChecksAttachedObjectsInTheFullReading) {
    const Support::Installation installation;
    const Support::WorkingDirectory inside(installation.path.string());
    const std::string file = "_v10_att_file_stl ";
    installation.Aircraft("Aircraft/Props/Cub", "Cub", "P _obja/0/" + file + "a.obj\nP _obja/1/" + file + "gone.obj\n");
    installation.Write("Aircraft/Props/Cub/objects/a.obj",
                       ObjText().Texture().Line("ANIM_trans 0 0 0 0 1 0\nATTR_manip_push hand 1 1 x").Tris().Text());
    installation.Write("Aircraft/Props/Cub/objects/panel.png", "");
    const Sim::AircraftList list = Sim::XPAircraftListLoader().LoadAircraftList();
    EXPECT_THROW(LintAircraft(*list.front()), std::runtime_error);
    EXPECT_THAT(Places(LintAircraft(*list.front(), CockpitModel::Reading::Full)),
                ElementsAre("no-dataref@12", "equal-values@13", "attached-objects@0", "no-yoke@0"));
    installation.Write("Aircraft/Props/Cub/plane_cockpit.obj", ObjText().Text());
    const auto findings = LintAircraft(*list.front());
    EXPECT_THAT(Places(findings), ElementsAre("attached-objects@0", "no-yoke@0"));
    EXPECT_THAT(findings.at(0).message, HasSubstr("1 attached object with manipulators is not read"));
}

/// Texts start after ten lines of header and pool and a TEXTURE in line 11.
TEST(LintTest, FindsWhatTheReaderSkipsSilently) {
    const struct {
        const char* name;
        const char* text;
        std::vector<std::string> places;
        const char* message = ""; ///< part of the first message
        CockpitModel::Reading reading = CockpitModel::Reading::Plain;
    } rows[] = {
        {"known keywords without effect",
         "ATTR_LOD 0 10\nANIM_rotate_key 0 1\nRAIN_scale 1\nTHERMAL_source2 0 a b\nWIPER_param a\nslung_load_weight 9",
         {}},
        {"comments", "# TRIX\n#TRIX\n####_alpha\n", {}},
        {"a repeated unknown keyword, reported once", "TRIX 0 3\nTRIX 0 3\n", {"unknown-keyword@12"}},
        {"one surplus end, then two missing ends",
         "ANIM_begin\nANIM_end\nANIM_end\nANIM_begin\nANIM_begin\n",
         {"unbalanced@14", "unbalanced@15", "unbalanced@16"}},
        {"equal values", "ATTR_manip_drag_axis hand 1 0 0 3 3.0 sim/x", {"equal-values@12"}},
        {"malformed numbers",
         "VT 1 2 3 4 5 6 7 1,5 # comma\nTRIS 0 3.0\nATTR_manip_wrap hand 1 1 x 2 sim/x",
         {"bad-number@12", "bad-number@13", "bad-number@14"},
         "column 18: VT needs a number, but has '1,5'"},
        {"missing values, each reported once",
         "  VT 1 2\t\r\nATTR_manip_command hand\nATTR_manip_drag_axis hand 1 0 0 1\nANIM_show 0 1 \nLIGHT_NAMED",
         {"missing-value@12", "missing-value@13", "missing-value@14", "missing-value@15", "missing-value@16"},
         "column 10: the line ends where VT needs a number"},
        {"values that may be missing, and text after the last",
         "IDX 0 1\nANIM_begin\nANIM_trans 1 2 3 1 2 3\nANIM_end\nATTR_manip_noop\nATTR_manip_push h 0 1 a a tip, 1",
         {}},
        {"manipulators without a dataref",
         "ATTR_manip_toggle hand 0 1\nATTR_manip_toggle hand 0 1 no_ref",
         {"no-dataref@12", "no-dataref@13"}},
        {"zero axes, the second without rotation",
         "ANIM_begin\nANIM_rotate 0 0.0 0 0 90 0 1 sim/x\nANIM_rotate 0 0 0 0 0 0 1 sim/x\nANIM_end",
         {"zero-axis@13"}},
        {"steps without a dataref, the last without motion",
         "ANIM_begin\nANIM_rotate 0 1 0 0 90 0 1\nANIM_trans 0 0 0 0 0 1 0 1 none\nANIM_trans 0 0 0 0 0 1 0 1 no_ref\n"
         "ANIM_trans 1 2 3 1 2 3 0 0\nANIM_end",
         {"no-dataref@13", "no-dataref@14", "no-dataref@15"}},
        {"steps outside all blocks, with further mistakes",
         "ANIM_rotate 0 0 0 0 90 0 1\nANIM_rotate 0 0 0 0 90 0 1",
         {"step-outside@12", "step-outside@13"},
         "moves nothing"},
        {"line ends that corrupt keywords, datarefs and paths",
         "ANIM_begin\r\r\nTEXTURE a.png\r\r\nATTR_manip_toggle hand 0 1\t\r\r\nTRIS 0 3\nANIM_end\r\r\r\n",
         {"line-ends@12", "no-dataref@14"},
         "4 lines end in CR CR LF"},
        {"ranges outside the indices", "TRIS 1 3\nTRIS -3 3\n", {"index-range@12", "index-range@13"}},
        {"a missing vertex",
         "IDX 0\nIDX 1\nIDX 3\nTRIS 0 3\nTRIS 3 3\n",
         {"index-range@16"},
         "needs vertex 3 (counted from 0), but the file has 3"},
        {"a part that is not drawn", "ATTR_draw_disable\nTRIS 1 3\n", {}},
        {"no whole triangle", "TRIS 0 2\n", {"part-triangle@12"}},
        {"a path with a space", "TEXTURE my panel.png\n", {"texture-blank@12"}},
        {"a manipulator that applies after its block",
         "ANIM_begin\nATTR_manip_toggle hand 0 1 x\nTRIS 0 3\nANIM_begin\nANIM_begin\nTRIS 0 "
         "3\nANIM_end\nANIM_end\nANIM_end\n"
         "TRIS 0 3\nTRIS 0 3",
         {"left-in-force@21"},
         "ATTR_manip_toggle of line 13 still applies to 2 parts outside"},
        {"one that ends in its block",
         "ANIM_begin\nATTR_manip_toggle hand 0 1 x\nTRIS 0 3\nATTR_manip_none\nANIM_end\nTRIS 0 3",
         {}},
        {"an unsupported one, after which the previous one still applies",
         "ATTR_manip_toggle hand 0 1 x\nTRIS 0 3\nATTR_manip_push hand 1 0 y\nTRIS 0 3\nTRIS 0 3",
         {"unread-manipulator@14"},
         "2 parts from line 15 on"},
        {"a command, which is ignored but ends the toggle",
         "ATTR_manip_toggle hand 0 1 x\nTRIS 0 3\nATTR_manip_command hand y\nTRIS 0 3",
         {}},
        {"a drag without animation, reported once",
         "ATTR_manip_drag_axis hand 1 0 0 0 1 x\nTRIS 0 3\nTRIS 0 3",
         {"drag-without-animation@13"}},
        {"a drag that slides",
         "ANIM_begin\nANIM_trans 0 0 0 0 0 1 0 1 x\nATTR_manip_drag_axis hand 1 0 0 0 1 x\nTRIS 0 3\nANIM_end",
         {}},
        {"a drag by keyframes",
         "ANIM_begin\nANIM_trans_begin x\nATTR_manip_drag_axis hand 1 0 0 0 1 x\nTRIS 0 3\nANIM_end",
         {"drag-without-animation@15"},
         "keyframes"},
        {"the full reading takes every manipulator",
         "ATTR_manip_toggle hand 0 1 x\nTRIS 0 3\nATTR_manip_push hand 1 1 y\nTRIS 0 3\nATTR_manip_wheel 1\n"
         "ATTR_manip_command_knob hand\nATTR_manip_device\nATTR_manip_later\nANIM_begin\n"
         "ATTR_manip_drag_axis_pix hand 9 0 1 0 1 z\nTRIS 0 3\nANIM_end\nATTR_draw_disable\nTRIS 0 3\n",
         {"equal-values@14", "missing-value@17", "unknown-keyword@19", "left-in-force@25"},
         "ATTR_manip_push between equal values",
         CockpitModel::Reading::Full},
    };
    for (const auto& row : rows) {
        const auto findings = LintObject("plane_cockpit.obj", ObjText().Texture().Line(row.text).Text(), row.reading);
        EXPECT_EQ(Places(findings), row.places) << row.name;
        EXPECT_THAT(findings.empty() ? "" : findings[0].message, HasSubstr(row.message)) << row.name;
    }
}

TEST(LintTest, FindsGeometryWithoutTexture) {
    const auto findings = Lint(ObjText().Tris().Line("ATTR_cockpit").Tris().Line("ATTR_no_cockpit").Tris());
    EXPECT_THAT(Places(findings), ElementsAre("no-texture@11"));
    EXPECT_EQ(findings.at(0).severity, LintSeverity::Error);
    EXPECT_THAT(findings.at(0).message, HasSubstr("2 parts")) << "the part in line 13 has the panel's texture";
    const auto empty = Lint(ObjText().Line("TEXTURE").Line("TEXTURE").Tris());
    EXPECT_THAT(Places(empty), ElementsAre("no-texture@11"));
    EXPECT_THAT(empty.at(0).message, HasSubstr("TEXTURE without a file name (1 part)"));
}

TEST(LintTest, ReadsAnyBytes) {
    for (const std::string text : {"", "\n\n", "TRIS", "TEXTURE", "ANIM_end\nANIM_trans\nIDX10\nTRIS 0 9999999999999",
                                   "ATTR_manip_toggle\nTRIS 9223372036854775807 9223372036854775807\n", "\xFF\0\r"})
        LintObject("x", text);
    EXPECT_THAT(Places(LintObject("x", "TEXTURE a\nTRIS 9223372036854775807 9223372036854775807")),
                ElementsAre("index-range@2"));
}

TEST(LintTest, FindsIgnoredAnnotations) {
    const Support::Installation installation;
    const Support::WorkingDirectory inside(installation.path.string());
    installation.Aircraft("Aircraft/Props/Cub", "Cub", ObjText().Texture().Tris().Tris());
    installation.Write("Aircraft/Props/Cub/panel.png", "");
    const auto lint = [&](const std::string& records) {
        installation.Annotations("Cub", records);
        auto findings = LintAircraft(*Sim::XPAircraftListLoader().LoadAircraftList().at(0));
        EXPECT_EQ(findings.back().check, "no-yoke");
        findings.pop_back();
        return Places(findings);
    };
    const std::string first = "<NodeId>0</NodeId><PartId>0</PartId>";
    const struct {
        const char* name;
        std::string records;
        std::vector<std::string> places;
    } rows[] = {
        {"all fields",
         "<Override>" + first +
             "<InteractionType>Radio</InteractionType><InteractionTypeTest>YokePart</InteractionTypeTest>"
             "<EventType>LClick/RClick</EventType><Tooltip/><Reverse>1</Reverse><Mine/></Override>",
         {}},
        {"unknown values",
         "<Override>" + first + "<InteractionType>tap</InteractionType>\n<EventType/>\n<Reverse>true</Reverse>\n" +
             "<InteractionTypeTest>Slide</InteractionTypeTest></Override>",
         {"annotation-word@1", "annotation-word@2", "annotation-word@3", "annotation-word@4"}},
        {"values that the reader accepts",
         "<Override><NodeId>0</NodeId><PartId> +0</PartId><Reverse>01</Reverse>\n<Tooltip><!-- -->x</Tooltip>\n"
         "<InteractionType><!-- -->Tap</InteractionType></Override>\n"
         "<Override><NodeId>0</NodeId><PartId>1</PartId>\n<Reverse>1x</Reverse></Override>\n"
         "<Override><NodeId>0</NodeId>\n<PartId>0x1</PartId></Override>",
         {"annotation-place@1", "annotation-word@3", "annotation-word@5", "annotation-word@7"}},
        {"no part number", "\n<Override><NodeId>0</NodeId></Override>", {"annotation-place@2"}},
        {"an unknown part",
         Support::Expectation(0, 1, "Tap") + "\n" + Support::Expectation(0, 2, "Tap"),
         {"annotation-place@2"}},
        {"an unknown node", Support::Expectation(1, 0, "Tap"), {"annotation-place@1"}},
        {"a part twice",
         "\n" + Support::Expectation(0, 1, "Tap") + "\n\n" + Support::Expectation(0, 1, "Move"),
         {"annotation-place@2"}},
        {"no XML", "\n<Override", {"annotation-xml@2"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(lint(row.records), row.places) << row.name;
}

TEST(LintTest, ChecksTheFilesAroundACockpit) {
    const Support::Installation installation;
    const Support::WorkingDirectory inside(installation.path.string());
    installation.Aircraft("Aircraft/Props/Cub", "Cub", std::string("i\x84\x03\0\0", 5));
    const std::string yoke = "ANIM_rotate 0 0 1 0 30 0 1 sim/cockpit2/controls/yoke_roll_ratio\n"
                             "ANIM_trans 0 0 0 0 0 0.5 0 1 sim/cockpit2/controls/yoke_pitch_ratio";
    ObjText object =
        ObjText().Texture("A.png").Texture("b.png").Texture("c.png").Begin().Line(yoke).Tris().Tris().End();
    installation.Write("Aircraft/Props/Cub/Plane_Cockpit.obj", object.Line("ATTR_cockpit").Tris().Text());
    installation.Write("Aircraft/Props/Cub/a.png", "");
    installation.Write("Aircraft/Props/Cub/b.dds", "");
    Sim::AircraftList list = Sim::XPAircraftListLoader().LoadAircraftList();
    ASSERT_EQ(list.size(), 1u);
    const auto findings = LintAircraft(*list.front());
    EXPECT_THAT(Places(findings),
                ElementsAre("object-case@0", "texture-case@11", "texture-missing@13", "panel-missing@21",
                            "acf-binary@0", "several-yokes@0", "texture-missing@12"))
        << "most severe first: that X-Plane uses the .dds is only a note";
    EXPECT_THAT(findings.at(3).message, HasSubstr("1 part under ATTR_cockpit shows"));
    EXPECT_THAT(findings.at(5).message,
                testing::ContainsRegex("part 2,0 scores [-0-9.]+ \\(chosen\\), part 2,1 scores"));

    installation.Write("Aircraft/Props/Cub/Plane_Cockpit.obj",
                       ObjText().Line("ANIM_rotate 0 0 1 0 30 0 1 sim/joystick/Yoke_roll").Line(yoke).Text());
    EXPECT_THAT(LintAircraft(*list.front()).back().message,
                HasSubstr("moves with both axes of a yoke (sim/joystick/Yoke_roll in line 11 is not recognized)"));

    installation.Write("Aircraft/Props/Cub/cockpit/-panels-/panel.png", "");
    installation.Write("Aircraft/Props/Cub/Plane_Cockpit.obj", ObjText().Line("ATTR_cockpit").Tris().Text());
    EXPECT_THAT(Places(LintAircraft(*list.front())),
                ElementsAre("object-case@0", "acf-binary@0", "no-yoke@0", "panel-missing@12"))
        << "that X-Plane uses the 2D panel is only a note";
    boost::filesystem::remove(installation.path / "Aircraft/Props/Cub/Plane_Cockpit.obj");
    EXPECT_THROW(LintAircraft(*list.front()), std::runtime_error);
}

} // namespace
} // namespace Annotator
