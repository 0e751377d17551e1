#include "CockpitModel/XPlane/XPObjReader.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>

namespace CockpitModel {
namespace {

XPObjData ReadText(const std::string& text) {
    std::istringstream stream(text);
    XPObjData data;
    ReadXPObj(stream, data);
    return data;
}

/// "toggle <dataref> <value1> <value2> @<line>", the same for a drag, "none" without a manipulator.
std::string ShowManipulator(const XPObjDrawCall& call) {
    if (!call.toggle && !call.drag)
        return call.manipLine == 0 ? "none" : "none, but with a line";
    const XPObjManip& manip = call.toggle ? *call.toggle : *call.drag;
    std::ostringstream text;
    text << (call.toggle ? "toggle " : "drag ") << (call.toggle && call.drag ? "and drag " : "") << manip.dataref << ' '
         << manip.value1 << ' ' << manip.value2 << " @" << call.manipLine;
    return std::move(text).str();
}

template <typename Values>
std::string Joined(const Values& values) {
    std::ostringstream text;
    for (const auto& value : values)
        text << value << ' ';
    return std::move(text).str();
}

std::string Show(const XPObjVertex& v) {
    return Joined(std::array{v.x, v.y, v.z, v.nx, v.ny, v.nz, v.u, v.v});
}

/// "<parent>: <steps>" of a node; a step as its kind, its numbers, both values and the dataref.
std::string Show(const XPObjAnimNode& node) {
    std::ostringstream text;
    text << static_cast<std::int32_t>(node.parent) << ':';
    for (const XPObjAnimStep& step : node.steps) {
        text << (step.translation ? " trans " + Joined(*step.translation) : "")
             << (step.rotation ? " rotate " + Joined(*step.rotation) : "");
        text << "from " << step.value1 << " to " << step.value2 << " by " << step.dataref;
    }
    return std::move(text).str();
}

TEST(XPObjReader, ReadsValuesUpToTheFirstFault) {
    const struct {
        const char* line;
        const char* vertex;
    } rows[] = {
        {"VT 1 2 3 4 5 6 7 8", "1 2 3 4 5 6 7 8 "},
        {"  \t VT\t 1\t\t2 3  4 5 6 7 8 9 # nine", "1 2 3 4 5 6 7 8 "},
        {"VT 1\r2\v3\f4 5 6 7 8\r", "1 2 3 4 5 6 7 8 "},
        {"VT 1 2 3", "1 2 3 0 0 0 0 0 "},
        {"VT", "0 0 0 0 0 0 0 0 "},
        {"VT 1 2 x 4 5 6 7 8", "1 2 0 0 0 0 0 0 "},
        {"VT 1 nan 3 4 5 6 7 8", "1 0 0 0 0 0 0 0 "},
        {"VT 1 1e50 3 1e-50 5 6 7 8", "1 0 3 0 5 6 7 8 "},
        {"VT 1-2+3.5.25 5 6 7 8", "1 -2 3.5 0.25 5 6 7 8 "},
        {"VT 1 2e 4 5 6 7 8", "1 2 0 0 0 0 0 0 "},
        {"VT 1 - 2 3 4 5 6 7 8", "1 0 0 0 0 0 0 0 "},
    };
    for (const auto& row : rows) {
        const XPObjData data = ReadText(std::string(row.line) + "\nVT 9 9 9 9 9 9 9 9");
        ASSERT_EQ(data.vertices.size(), 2u) << row.line;
        EXPECT_EQ(Show(data.vertices[0]), row.vertex) << row.line;
        EXPECT_EQ(Show(data.vertices[1]), "9 9 9 9 9 9 9 9 ") << row.line;
    }
}

TEST(XPObjReader, KeepsIndicesBeforeAFault) {
    using Indices = std::vector<std::int32_t>;
    EXPECT_EQ(ReadText("IDX 5\nIDX\nIDX x\nIDX 1.9\nIDX -3").indices, (Indices{5, 0, 0, 1, -3}));
    EXPECT_EQ(ReadText("IDX10 1 2 3 4 5 6 7 8 9 10 11").indices, (Indices{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(ReadText("IDX10 1 2 3\nIDX10 4 x 6\nIDX10\nIDX10 7.5 8").indices, (Indices{1, 2, 3, 4, 7}));
    EXPECT_EQ(ReadText("IDX10 99999999999 -99999999999 5").indices,
              (Indices{std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min(), 5}));
}

TEST(XPObjReader, KeepsPanelTextureAndRootIfNothingIsRead) {
    std::istringstream unopened("VT 1 2 3 4 5 6 7 8\n");
    unopened.setstate(std::ios::failbit);
    XPObjData fromUnopened;
    ReadXPObj(unopened, fromUnopened);
    // Keywords must match in full and in case.
    const char* const unread = "vt 1 2 3 4 5 6 7 8\nVTX 1 2 3 4 5 6 7 8\nVT\v1 2 3\n#VT 1\nV\nTEXTURE_LIT a.png\n"
                               "ANIM_trans_key 0 1 2 3\nIDX1 4\nTRISX 0 3\n\n \t \nANIM_begins\nIDX10x 1\n";
    for (const XPObjData& data : {fromUnopened, ReadText(""), ReadText(unread)}) {
        EXPECT_EQ(data.textures, (std::vector<std::string>{"cockpit_3d/-PANELS-/Panel.png"}));
        ASSERT_EQ(data.animNodes.size(), 1u);
        EXPECT_EQ(Show(data.animNodes[0]), "-1:");
        EXPECT_TRUE(data.vertices.empty() && data.indices.empty() && data.drawCalls.empty());
    }
}

TEST(XPObjReader, AssignsTheTextureInForceToDrawCalls) {
    const XPObjData data = ReadText("TRIS 0 3\nTEXTURE a b.png\r\nTRIS 3 3\nTEXTURE\nTEXTURE c.png\nTRIS -6 x\n"
                                    "ATTR_cockpit\nTRIS\nATTR_no_cockpit \t\r\nATTR_draw_disable\nTRIS 9 9999999999\n"
                                    "ATTR_cockpit_region 1\nTRIS 1 2\nATTR_draw_enable\nTRIS 1 2\nTEXTURE \t\n");
    EXPECT_EQ(data.emptyTextureLine, 4u);
    EXPECT_EQ(data.textures, (std::vector<std::string>{"cockpit_3d/-PANELS-/Panel.png", "a", "c.png"}));
    std::string calls;
    for (const XPObjDrawCall& call : data.drawCalls)
        calls += Joined(std::array<std::int64_t, 4>{call.offset, call.count, call.texture, call.line}) +
                 (call.drawEnabled ? "drawn\n" : "hidden\n");
    EXPECT_EQ(calls, "0 3 4294967295 1 drawn\n"
                     "3 3 1 3 drawn\n"
                     "-6 0 2 6 drawn\n"
                     "0 0 0 8 drawn\n"
                     "9 2147483647 2 11 hidden\n"
                     "1 2 2 13 hidden\n"
                     "1 2 2 15 drawn\n");
}

TEST(XPObjReader, KeepsTheManipulatorInForce) {
    const struct {
        const char* line;
        const char* manipulator; ///< at a TRIS below it
    } rows[] = {
        {"", "none"},
        {"ATTR_manip_toggle hand 0 1.5 sim/a tip of the tool", "toggle sim/a 0 1.5 @3"},
        {"ATTR_manip_push hand 1 0 sim/other", "toggle sim/a 0 1.5 @3"},
        {"ANIM_end", "toggle sim/a 0 1.5 @3"},
        {"ATTR_manip_drag_axis hand 1 2 3 -1 1 sim/b", "drag sim/b -1 1 @9"},
        {"ATTR_manip_toggle hand 2sim/glued", "toggle  2 0 @11"},
        {"ATTR_manip_toggle hand 2 3sim/glued", "toggle sim/glued 2 3 @13"},
        {"ATTR_manip_toggle hand x 3 sim/c", "toggle  0 0 @15"},
        {"ATTR_manip_toggle", "toggle  0 0 @17"},
        {"ATTR_manip_drag_axis hand 1 2", "drag  0 0 @19"},
        {"ATTR_manip_drag_axis hand 1e99 2 3 4 5 d\r", "drag d 4 5 @21"},
        {"ATTR_manip_none", "none"},
        {"ATTR_manip_toggle hand 0 1 d", "toggle d 0 1 @25"},
        {"ATTR_manip_command hand sim/e", "none"},
        {"ATTR_manip_drag_axis hand 1 2 3 4 5 d", "drag d 4 5 @29"},
        {"ATTR_manip_drag_xy hand 1 1 0 1 0 1 a b", "none"},
        {"ATTR_manip_toggle hand 0 1 d", "toggle d 0 1 @33"},
        {"ATTR_manip_command_axis hand 1 0 0 a b", "none"},
    };
    std::string text;
    for (const auto& row : rows)
        text += std::string(row.line) + "\nTRIS 0 3\n";
    const XPObjData data = ReadText(text);
    ASSERT_EQ(data.drawCalls.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(ShowManipulator(data.drawCalls[i]), rows[i].manipulator) << rows[i].line;
}

TEST(XPObjReader, NestsAnimationBlocks) {
    const XPObjData data =
        ReadText("ANIM_end\nANIM_trans 1 2 3 4 5 6 0 1 root\nANIM_begin\nANIM_begin\n"
                 "ANIM_rotate 0 1 0 -10 20 2 3 inner extra\nANIM_trans\nTRIS 0 3\nANIM_end\nANIM_end\n"
                 "ANIM_end\nTRIS 3 3\nANIM_begin\nANIM_rotate 0 0 1 5 x 1 2 lost");
    std::vector<std::string> nodes;
    for (const XPObjAnimNode& node : data.animNodes) {
        EXPECT_EQ(node.index, nodes.size());
        nodes.push_back(Show(node));
    }
    EXPECT_EQ(nodes, (std::vector<std::string>{"-1: trans 1 2 3 4 5 6 from 0 to 1 by root", "0:",
                                               "1: rotate 0 1 0 -10 20 from 2 to 3 by inner"
                                               " trans 0 0 0 0 0 0 from 0 to 0 by ",
                                               "0: rotate 0 0 1 5 0 from 0 to 0 by "}));
    EXPECT_EQ(data.animNodes[0].children, (std::vector<std::uint32_t>{1, 3}));
    EXPECT_EQ(data.animNodes[1].children, (std::vector<std::uint32_t>{2}));
    EXPECT_EQ(data.drawCalls.at(0).animNode, 2u);
    EXPECT_EQ(data.drawCalls.at(1).animNode, 0u);
}

TEST(XPObjReader, AcceptsAnyBytes) {
    using namespace std::string_literals;
    const XPObjData zeros =
        ReadText("VT 1\0 2 3\nTEXTURE a\0b\nANIM_begin\0\nATTR_manip_toggle h\0 1 2 x\0y\nTRIS 0 3"s);
    EXPECT_EQ(Show(zeros.vertices.at(0)), "1 0 0 0 0 0 0 0 ");
    EXPECT_EQ(zeros.textures.at(1), "a\0b"s);
    EXPECT_EQ(zeros.animNodes.size(), 1u);
    EXPECT_EQ(zeros.drawCalls.at(0).toggle->dataref, "x\0y"s);
}

} // namespace
} // namespace CockpitModel
