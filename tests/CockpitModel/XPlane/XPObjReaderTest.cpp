#include "CockpitModel/XPlane/XPObjReader.h"

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

std::string Show(const XPObjVertex& v) {
    std::ostringstream text;
    for (const float value : {v.x, v.y, v.z, v.nx, v.ny, v.nz, v.u, v.v})
        text << value << ' ';
    return std::move(text).str();
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

TEST(XPObjReader, LeavesPanelTextureAndRootForAnEmptyOrUnopenedStream) {
    std::istringstream unopened("VT 1 2 3 4 5 6 7 8\n");
    unopened.setstate(std::ios::failbit);
    XPObjData data;
    ReadXPObj(unopened, data);
    for (const XPObjData& empty : {data, ReadText("")}) {
        EXPECT_EQ(empty.textures, (std::vector<std::string>{"cockpit_3d/-PANELS-/Panel.png"}));
        ASSERT_EQ(empty.animNodes.size(), 1u);
        EXPECT_EQ(empty.animNodes[0].parent, kXPObjNone);
        EXPECT_TRUE(empty.vertices.empty() && empty.indices.empty() && empty.drawCalls.empty());
    }
}

TEST(XPObjReader, TakesValuesUpToTheFirstFault) {
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

TEST(XPObjReader, KeepsIndicesAheadOfAFault) {
    using Indices = std::vector<std::int32_t>;
    EXPECT_EQ(ReadText("IDX 5\nIDX\nIDX x\nIDX 1.9\nIDX -3").indices, (Indices{5, 0, 0, 1, -3}));
    EXPECT_EQ(ReadText("IDX10 1 2 3 4 5 6 7 8 9 10 11").indices, (Indices{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(ReadText("IDX10 1 2 3\nIDX10 4 x 6\nIDX10\nIDX10 7.5 8").indices, (Indices{1, 2, 3, 4, 7}));
    EXPECT_EQ(ReadText("IDX10 99999999999 -99999999999 5").indices,
              (Indices{std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min(), 5}));
}

TEST(XPObjReader, ComparesKeywordsInFullAndWithCase) {
    const XPObjData data = ReadText("vt 1 2 3 4 5 6 7 8\nVTX 1 2 3 4 5 6 7 8\nVT\v1 2 3\n#VT 1\nV\nTEXTURE_LIT a.png\n"
                                    "ANIM_trans_key 0 1 2 3\nIDX1 4\nTRISX 0 3\n\n \t \nANIM_begins\nIDX10x 1\n");
    EXPECT_TRUE(data.vertices.empty() && data.indices.empty() && data.drawCalls.empty());
    EXPECT_EQ(data.textures.size(), 1u);
    EXPECT_EQ(data.animNodes.size(), 1u);
    EXPECT_TRUE(data.animNodes[0].steps.empty());
}

TEST(XPObjReader, GivesDrawCallsTheTextureInForce) {
    const XPObjData data = ReadText("TRIS 0 3\nTEXTURE a b.png\r\nTRIS 3 3\nTEXTURE\nTEXTURE c.png\nTRIS -6 x\n"
                                    "ATTR_cockpit\nTRIS\nATTR_no_cockpit \t\r\nATTR_draw_disable\nTRIS 9 9999999999\n"
                                    "ATTR_cockpit_region 1\nTRIS 1 2\nATTR_draw_enable\nTRIS 1 2");
    EXPECT_EQ(data.textures, (std::vector<std::string>{"cockpit_3d/-PANELS-/Panel.png", "a", "c.png"}));
    const struct {
        std::int32_t offset, count;
        std::uint32_t texture, line;
        bool drawn;
    } rows[] = {{0, 3, kXPObjNone, 1, true},
                {3, 3, 1, 3, true},
                {-6, 0, 2, 6, true},
                {0, 0, 0, 8, true},
                {9, std::numeric_limits<std::int32_t>::max(), 2, 11, false},
                {1, 2, 2, 13, false},
                {1, 2, 2, 15, true}};
    ASSERT_EQ(data.drawCalls.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(data.drawCalls[i].offset, rows[i].offset) << i;
        EXPECT_EQ(data.drawCalls[i].count, rows[i].count) << i;
        EXPECT_EQ(data.drawCalls[i].texture, rows[i].texture) << i;
        EXPECT_EQ(data.drawCalls[i].line, rows[i].line) << i;
        EXPECT_EQ(data.drawCalls[i].drawEnabled, rows[i].drawn) << i;
    }
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
    ASSERT_EQ(data.animNodes.size(), 4u);
    const std::uint32_t parents[] = {kXPObjNone, 0, 1, 0};
    for (std::uint32_t i = 0; i < 4; ++i) {
        EXPECT_EQ(data.animNodes[i].index, i);
        EXPECT_EQ(data.animNodes[i].parent, parents[i]) << i;
    }
    EXPECT_EQ(data.animNodes[0].children, (std::vector<std::uint32_t>{1, 3}));
    EXPECT_EQ(data.animNodes[1].children, (std::vector<std::uint32_t>{2}));
    EXPECT_EQ(data.drawCalls[0].animNode, 2u);
    EXPECT_EQ(data.drawCalls[1].animNode, 0u);

    ASSERT_EQ(data.animNodes[0].steps.size(), 1u);
    const XPObjAnimStep& root = data.animNodes[0].steps[0];
    EXPECT_EQ(root.translation, (std::array<float, 6>{1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(root.rotation);
    EXPECT_EQ(root.dataref, "root");
    ASSERT_EQ(data.animNodes[2].steps.size(), 2u);
    const XPObjAnimStep& inner = data.animNodes[2].steps[0];
    EXPECT_EQ(inner.rotation, (std::array<float, 5>{0, 1, 0, -10, 20}));
    EXPECT_FALSE(inner.translation);
    EXPECT_EQ(inner.value1, 2);
    EXPECT_EQ(inner.value2, 3);
    EXPECT_EQ(inner.dataref, "inner");
    EXPECT_EQ(data.animNodes[2].steps[1].translation, (std::array<float, 6>{}));
    ASSERT_EQ(data.animNodes[3].steps.size(), 1u);
    EXPECT_EQ(data.animNodes[3].steps[0].rotation, (std::array<float, 5>{0, 0, 1, 5, 0}));
    EXPECT_EQ(data.animNodes[3].steps[0].value1, 0);
    EXPECT_EQ(data.animNodes[3].steps[0].dataref, "");
}

TEST(XPObjReader, KeepsLinesWholeInLongTexts) {
    constexpr int kLines = 100000;
    std::string text;
    for (int i = 0; i < kLines; ++i)
        text += "IDX " + std::to_string(i * 7919LL % 1000003) + (i % 3 == 0 ? "\r\n" : "\n");
    const XPObjData data = ReadText(text + "TRIS 1 2");
    ASSERT_EQ(data.indices.size(), static_cast<std::size_t>(kLines));
    int wrong = 0;
    for (int i = 0; i < kLines; ++i)
        wrong += data.indices[static_cast<std::size_t>(i)] != i * 7919LL % 1000003;
    EXPECT_EQ(wrong, 0);
    ASSERT_EQ(data.drawCalls.size(), 1u);
    EXPECT_EQ(data.drawCalls[0].line, static_cast<std::uint32_t>(kLines) + 1);
    EXPECT_EQ(data.drawCalls[0].count, 2);
}

TEST(XPObjReader, StandsAnyBytes) {
    using namespace std::string_literals;
    const XPObjData zeros =
        ReadText("VT 1\0 2 3\nTEXTURE a\0b\nANIM_begin\0\nATTR_manip_toggle h\0 1 2 x\0y\nTRIS 0 3"s);
    EXPECT_EQ(Show(zeros.vertices.at(0)), "1 0 0 0 0 0 0 0 ");
    EXPECT_EQ(zeros.textures.at(1), "a\0b"s);
    EXPECT_EQ(zeros.animNodes.size(), 1u);
    EXPECT_EQ(zeros.drawCalls.at(0).toggle->dataref, "x\0y"s);

    std::string nested;
    for (int i = 0; i < 1000000; ++i)
        nested += "ANIM_begin\n";
    EXPECT_EQ(ReadText(nested).animNodes.back().parent, 999999u);
    EXPECT_EQ(ReadText("VT 1 " + std::string(20000000, ' ') + "2").vertices.at(0).y, 2);
    EXPECT_EQ(ReadText("TEXTURE " + std::string(20000000, 'x')).textures.at(1).size(), 20000000u);
}

TEST(XPObjReader, DoesNotTrustThePointCounts) {
    const XPObjData data =
        ReadText("POINT_COUNTS 2147483647 0 0 2147483647\nPOINT_COUNTS -5 x\nVT 1 2 3 4 5 6 7 8\nIDX 4\n"
                 "POINT_COUNTS 1 0 0 1\nVT 9 2 3 4 5 6 7 8\n");
    EXPECT_LT(data.vertices.capacity(), 100u);
    EXPECT_LT(data.indices.capacity(), 200u);
    ASSERT_EQ(data.vertices.size(), 2u);
    EXPECT_EQ(data.vertices[1].x, 9);
}

TEST(XPObjReader, BoundsTheNamesThatDrawCallsShare) {
    constexpr std::size_t kNameSize = 1000000, kCalls = 1000;
    std::string text = "ATTR_manip_toggle hand 0 1 " + std::string(kNameSize, 'n') + '\n';
    for (std::size_t i = 0; i < kCalls; ++i)
        text += "TRIS 0 3\n";
    const XPObjData data = ReadText(text);
    ASSERT_EQ(data.drawCalls.size(), kCalls);
    std::size_t bytes = 0;
    for (const XPObjDrawCall& call : data.drawCalls)
        bytes += call.toggle.value().dataref.capacity();
    EXPECT_LT(bytes, 80 * kNameSize);
    EXPECT_EQ(data.drawCalls.front().toggle->dataref.size(), kNameSize);
}

} // namespace
} // namespace CockpitModel
