#include "CockpitModel/XPlane/XPObjConverter.h"

#include "CockpitModel/XPlane/XPObjReader.h"
#include "Support/FatalErrorRecorder.h"
#include "Utils/RangeCheck.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace CockpitModel {
namespace {

ModelData Model(const std::string& objText) {
    std::istringstream stream(objText);
    XPObjData data;
    ReadXPObj(stream, data);
    ModelData model;
    model.sourcePath = "plane_cockpit.obj";
    XPObjConverter().Convert("Aircraft/Plane", data, model);
    return model;
}

/// "child,peer" of each node.
std::string Links(const ModelData& model) {
    std::ostringstream text;
    for (const SceneGraphElement& element : model.sceneElements.Children)
        text << element.Child << ',' << element.Peer << ' ';
    return std::move(text).str();
}

std::string Names(const ModelData& model) {
    std::string names;
    for (const ModelAnimation& animation : model.animations)
        names += animation.name + ' ';
    return names;
}

std::string Steps(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "ANIM_trans 0 0 0 0 0 1 0 1 step" + std::to_string(i) + "\n";
    return text;
}

TEST(XPObjConverter, MakesOneMaterialForEachTexture) {
    const ModelData model = Model("TEXTURE a.png\nTEXTURE sub/b.png\n");
    EXPECT_EQ(model.textures.Children, (std::vector<std::string>{"Aircraft/Plane/cockpit_3d/-PANELS-/Panel.png",
                                                                 "Aircraft/Plane/a.png", "Aircraft/Plane/sub/b.png"}));
    ASSERT_EQ(model.materials.Children.size(), 3u);
    EXPECT_EQ(model.materials.Children[2].TextureDiffuse, 2);
    EXPECT_EQ(model.materials.Children[2].BlendKind, 2);
    EXPECT_EQ(model.materials.Children[2].Alpha, 1.0f);
}

TEST(XPObjConverter, ConvertsVerticesToLeftHandedAxes) {
    const ModelData model = Model("VT 1 2 3 0 0 1 0.25 0.75\nIDX 0\nIDX -1\n");
    ASSERT_TRUE(model.vertexBlocks.size() == 1 && model.indexBlocks.size() == 1);
    const Vertex& v = model.vertexBlocks[0].Children.at(0);
    EXPECT_EQ((std::array{v.x, v.y, v.z, v.nx, v.ny, v.nz, v.u, v.v}),
              (std::array{1.0f, 2.0f, -3.0f, 0.0f, 0.0f, -1.0f, 0.25f, 0.75f}));
    EXPECT_EQ(model.indexBlocks[0].Children, (std::vector<std::uint32_t>{0, 0xFFFFFFFF}));
}

TEST(XPObjConverter, KeepsVisibleOrClickableDrawCalls) {
    const ModelData model =
        Model("TRIS 0 3\nATTR_draw_disable\nTRIS 3 3\nATTR_manip_toggle hand 0 1 sim/gear\nTRIS -6 -9\n"
              "ATTR_manip_drag_axis hand 1 0 0 -0.5 1e7 sim/throttle\nTRIS 9 3\n");
    std::ostringstream parts;
    for (const RiffBlockPART& part : model.parts)
        parts << part.Type << ' ' << part.MaterialIndex << ' ' << part.IndexOffset << ' ' << part.IndexCount << " @"
              << part.SourceLine << ", rectangle " << part.MouseRectIndex << " @" << part.ManipulatorLine << '\n';
    EXPECT_EQ(parts.str(), "1 4294967295 0 3 @1, rectangle -1 @0\n"
                           "1 4294967295 4294967290 4294967287 @5, rectangle 0 @4\n" // -6 and -9
                           "1 4294967295 9 3 @7, rectangle 1 @6\n");
    ASSERT_EQ(model.mouseRects.size(), 2u);
    const MouseRect &toggle = *model.mouseRects[0], &drag = *model.mouseRects[1];
    EXPECT_TRUE(model.parts[1].mouseRect == &toggle && model.parts[2].mouseRect == &drag);
    EXPECT_EQ(toggle.Text, "ToggleVariable: 0 , 1 -- sim/gear");
    EXPECT_EQ(toggle.MouseFlags, 0xA0000000);
    EXPECT_EQ(toggle.CallbackType, 1u);
    EXPECT_EQ(toggle.VariableCallback, nullptr);
    const auto& flip = dynamic_cast<const CallbackXPToggle&>(*toggle.EventCallback);
    EXPECT_EQ(std::tuple(flip.Var, flip.ValA, flip.ValB), std::tuple("sim/gear", 0.0f, 1.0f));
    EXPECT_EQ(drag.Text, "DragVariable: -0.5 , 1e+07 -- sim/throttle");
    EXPECT_EQ(drag.CallbackType, 2u);
    EXPECT_EQ(drag.EventCallback, nullptr);
    const auto& slide = dynamic_cast<const CallbackXPVariable&>(*drag.VariableCallback);
    EXPECT_EQ(std::tuple(slide.Var, slide.Min, slide.Max), std::tuple("sim/throttle", -0.5f, 1e7f));
}

TEST(XPObjConverter, MakesKeysInTheModelsAxes) {
    const ModelData model =
        Model("ANIM_begin\nANIM_trans 1 2 3 4 5 6 -1 7 sim/a\nANIM_begin\n"
              "ANIM_rotate 1 2 3 0 120 0 1 sim/b\nANIM_begin\nANIM_rotate 0 0 0 0 180 0 1 sim/zero\n");
    ASSERT_EQ(model.animations.size(), 4u);
    const ModelAnimation& move = model.animations[1];
    EXPECT_EQ(move.name, "sim/a");
    EXPECT_EQ((std::array{move.rangeLow, move.rangeHigh, move.length, move.position, move.scale}),
              (std::array{-1.0f, 7.0f, 100.0f, 0.0f, 1.0f}));
    ASSERT_TRUE(move.tracks.size() == 1 && move.tracks[0].size() == 2);
    const RiffBlockXANK &from = move.tracks[0][0], &to = move.tracks[0][1];
    EXPECT_TRUE(from.IsTranslation && to.IsTranslation);
    EXPECT_EQ((std::array{from.Time, to.Time}), (std::array{0.0f, 100.0f}));
    EXPECT_EQ(from.Translation, Utils::Vector3(1, 2, -3));
    EXPECT_EQ(to.Translation, Utils::Vector3(4, 5, -6));

    const RiffBlockXANK& turned = model.animations[2].tracks[0][1];
    EXPECT_FALSE(turned.IsTranslation);
    const float unit = std::sqrt(0.75f / 14); // the sine of 60 degrees divided by the length of the axis
    EXPECT_TRUE(turned.Rotation.isApprox(Utils::Quaternion(0.5f, -unit, -2 * unit, 3 * unit), 1e-6f));
    const RiffBlockXANK& zero = model.animations[3].tracks[0][1];
    EXPECT_NEAR(zero.Rotation.w(), 0.0f, 1e-7f);
    EXPECT_EQ(zero.Rotation.vec().norm(), 0.0f);
}

TEST(XPObjConverter, SplitsStepsIntoAChain) {
    // Node 1 has three steps and the child 2: the chain is 1, 3, 4, and 2 and the draw call are at its end.
    const ModelData model =
        Model("ANIM_begin\n" + Steps(3) + "TRIS 0 3\nANIM_begin\nTRIS 3 3\nANIM_end\nANIM_end\nTRIS 6 3\n");
    EXPECT_EQ(Names(model), "Dummy Animation step0 Dummy Animation step1 step2 ");
    EXPECT_EQ(std::pair(model.animations[0].rangeHigh, model.animations[0].length), std::pair(1.0f, 100.0f));
    EXPECT_EQ(model.animations[0].tracks.at(0).at(1).Translation, Utils::Vector3::Zero());
    EXPECT_EQ(model.matrices.Children.at(4), Utils::Matrix4::Identity());
    EXPECT_EQ(Links(model), "1,-1 3,-1 -1,-1 4,-1 2,-1 ");
    EXPECT_EQ(model.parts[0].Node, 4u);
    EXPECT_EQ(model.parts[1].Node, 2u);
    EXPECT_EQ(model.parts[2].Node, 0u);
    EXPECT_EQ(model.animationLinks.Children, (std::vector<std::int16_t>{-1, 1, 2, 3, 4}));
    EXPECT_EQ(model.sceneElements.Children[4].MapOffset, 32);
    EXPECT_EQ(model.animationMap.Children[4].MatrixIndex, 4u);
    EXPECT_EQ(model.visibilityInfos.size(), 5u);
}

TEST(XPObjConverter, SplitsTheRootAndKeepsTheOrderOfSiblings) {
    const ModelData model =
        Model(Steps(2) + "ANIM_begin\nANIM_end\nANIM_begin\n" + Steps(2) + "ANIM_end\nANIM_begin\n");
    // Root 0 to its second step 4, whose children are 1, 2 and 3 in order; 2 continues in 5.
    EXPECT_EQ(Links(model), "4,-1 -1,2 5,3 -1,-1 1,-1 -1,-1 ");
    EXPECT_EQ(model.animationLinks.Children.at(0), -1);
}

TEST(XPObjConverter, MakesAsManyNodesAsTheTableCanAddress) {
    const ModelData most = Model("ANIM_begin\n" + Steps(32766) + "TRIS 0 3\n");
    EXPECT_EQ(most.animations.size(), 32767u);
    EXPECT_EQ(most.parts.at(0).Node, 32766u);
    EXPECT_EQ(most.sceneElements.Children[4095].MapOffset, 32760);
    EXPECT_EQ(most.sceneElements.Children[4096].MapOffset, -32768);

    EXPECT_THROW(Model("ANIM_begin\n" + Steps(32767)), Utils::OutOfRange);
}

} // namespace
} // namespace CockpitModel
