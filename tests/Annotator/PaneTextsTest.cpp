#include "Annotator/PaneTexts.h"

#include "Annotator/AnimationPosition.h"
#include "Annotator/UvGeometry.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "Support/ModelBuilder.h"

#include <gmock/gmock.h>
#include <limits>
#include <sstream>

namespace {

using namespace Annotator;
using namespace CockpitModel;
using testing::ElementsAre;
using testing::FieldsAre;

TEST(PaneTexts, DumpsAnAnimationWithItsTracksAndKeys) {
    ModelAnimation animation =
        Support::Animation("sim/flaps", {{Support::TranslationKey(0, 0, 0, 0), Support::TranslationKey(12.5f, 1, 0, 0)},
                                         {Support::TranslationKey(100, 0, 0, 0)}});
    animation.text = "raw data";
    animation.tracks[0][0].Text = "first";
    animation.tracks[0][1].Text = "second";
    animation.tracks[1][0].Text = "third";
    EXPECT_EQ(AnimationRowText({.animation = &animation, .node = nullptr, .label = ""}),
              "Param: sim/flaps\nRawData: raw data\nTransforms:\nLength:100\n"
              "\tTransform:\n\t\tfirst at 0\n\t\tsecond at 12.5\n"
              "\tTransform:\n\t\tthird at 100\n");
}

TEST(PaneTexts, WritesAMatrixWithASignBeforeEachNumber) {
    Utils::Matrix4 matrix = Utils::Matrix4::Identity();
    matrix.row(1) << -0.5f, 12.345f, -0.0f, 0.004f;
    matrix.row(3) << -1234.5f, 0.125f, 9.996f, 1.0f;
    const std::string text = "+1.00 +0.00 +0.00 +0.00 \n"
                             "-0.50 +12.35 +0.00 +0.00 \n"
                             "+0.00 +0.00 +1.00 +0.00 \n"
                             "-1234.50 +0.12 +10.00 +1.00 \n";
    EXPECT_EQ(MatrixText(matrix), text);
    Node node;
    node.localMatrix = matrix;
    EXPECT_EQ(AnimationRowText({.animation = nullptr, .node = &node, .label = ""}),
              "Node Local Matrix:\n" + text + "\n");
}

TEST(PaneTexts, TellsOfAPartWhatItHas) {
    Node node;
    node.index = 3;
    NodePart part;
    part.id = 0;
    part.node = &node;
    EXPECT_EQ(PartIdText(part), "ID: (3,0)");
    EXPECT_EQ(PartInfoText(part), "") << "it is not clickable";
    EXPECT_EQ(DetectedTooltipText(part), "Detected:");

    MouseRect rect;
    rect.Tooltip = "Flaps";
    part.block.mouseRect = &rect;
    part.BalanceFactor = -42.25f;
    std::ostringstream dump;
    rect.Dump(dump, "");
    EXPECT_EQ(PartInfoText(part),
              "Balance Factor: -42.25\nParent Matrix:\n" + MatrixText(part.node->localMatrix) + "\n" + dump.str());
    EXPECT_EQ(DetectedTooltipText(part), "Detected: Flaps");

    part.textureIndex = 2;
    part.textureName = "a&b.png";
    Material material;
    material.TextureDiffuse = 5;
    part.material = &material;
    EXPECT_EQ(MaterialText(part), "MaterialTexId: 2 TexId: 5 Tex: a&b.png");
    part.textureIndex.reset();
    EXPECT_EQ(MaterialText(part), "MaterialTexId: -1 TexId: 5 Tex: a&b.png");
    part.material = nullptr;
    EXPECT_EQ(MaterialText(part), "Material:");
}

TEST(AnimationPosition, MovesAllAnimationsOfOneDataref) {
    CockpitModel::ModelData model;
    for (const char* name : {"sim/a", "sim/b", "sim/a"})
        model.animations.push_back(Support::Animation(name, {}));
    model.animations[2].length = 50.0f;
    EXPECT_TRUE(MoveAnimations(model, "sim/a", 0.25f));
    EXPECT_FLOAT_EQ(model.animations[0].position, 0.25f);
    EXPECT_FLOAT_EQ(model.animations[1].position, 0.0f);
    EXPECT_FLOAT_EQ(model.animations[2].position, 0.125f);
    EXPECT_EQ(SliderPercent(model.animations[0]), 25);
    model.animations[0].position = 0.259f;
    EXPECT_EQ(SliderPercent(model.animations[0]), 25) << "truncated";
    model.animations[0].position = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(SliderPercent(model.animations[0]), 0);
}

TEST(UvGeometry, FillsASquareWithTheTextureSpace) {
    CockpitModel::NodePart part;
    part.vertices.resize(5); // a triangle and a rest that is none
    part.vertices[0].texture = {0.255f, 1.0f};
    part.vertices[1].texture = {-0.019f, 0.5f}; // truncated, not rounded down
    part.vertices[2].texture = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()};
    EXPECT_THAT(UvTriangles(part, 100),
                ElementsAre(ElementsAre(FieldsAre(25, 100), FieldsAre(-1, 50), FieldsAre(0, testing::Ge(100000)))));

    EXPECT_TRUE(UvPanelRectangles(part, 100).empty());
    CockpitModel::Panel panel;
    CockpitModel::PanelEntry& entry = panel.Entries.emplace_back();
    entry.U = 0.1f, entry.V = 0.25f, entry.Width = 0.5f, entry.Height = 0.125f;
    part.panel = &panel;
    EXPECT_THAT(UvPanelRectangles(part, 200), ElementsAre(FieldsAre(FieldsAre(20, 50), FieldsAre(100, 25))));
}

} // namespace
