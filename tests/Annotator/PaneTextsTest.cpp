#include "Annotator/PaneTexts.h"

#include "Support/ModelBuilder.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

using namespace Annotator;
using namespace CockpitModel;

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

} // namespace
