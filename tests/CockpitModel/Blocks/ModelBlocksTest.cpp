#include "CockpitModel/Blocks/ModelBlocks.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <sstream>

namespace CockpitModel {

namespace {

std::string Printed(const RiffBlock& block, const std::string& indent = {}) {
    std::ostringstream stream;
    block.Print(indent, stream);
    return stream.str();
}

} // namespace

TEST(ModelBlocksPrint, ListsStopAtTheirLimits) {
    RiffBlockIND3 indices;
    EXPECT_EQ(Printed(indices), "Name: , Length: 0\n  Indices:  ... (0)\n");
    indices.Children.resize(9);
    std::iota(indices.Children.begin(), indices.Children.end(), 0u);
    indices.Name = "pool";
    indices.Data = "abc";
    EXPECT_EQ(Printed(indices, "-"), "-Name: pool, Length: 3\n-  Indices: 0 1 2 3 4 5 6 7  ... (9)\n");

    RiffBlockTEXT names;
    names.Children = {"a.png", "b.png", "c.png", "d.png"};
    EXPECT_EQ(Printed(names, "-"), "-Name: , Length: 0\n-  a.png\n-  b.png\n-  c.png\n");

    RiffBlockMATE materials;
    materials.Children.resize(101);
    materials.Children[0] = {.Flags = -1, .TextureDiffuse = 2, .Detail = 3, .Scale = 0.5f};
    const std::string text = Printed(materials, "-");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 101);
    EXPECT_NE(text.find("\n-  Flags: -1, TextureDiffuse: 2, Detail: 3, Scale: 0.5\n"), std::string::npos);
}

TEST(ModelBlocksPrint, RowsShowTheirWords) {
    RiffBlockSGAL links;
    links.Children = {-1, 1, 2};
    EXPECT_EQ(Printed(links), "Name: , Length: 0\n  SGAL: -1 1 2  ... (3)\n");
    RiffBlockSGVL visibility;
    visibility.Children = {65535};
    EXPECT_EQ(Printed(visibility), "Name: , Length: 0\n  Visibility Linkages: 65535  ... (1)\n");
    RiffBlockAMAP map;
    map.Children = {{0, 0}, {0, 1}, {0, 2}, {0, 3}};
    EXPECT_EQ(Printed(map), "Name: , Length: 0\n  AMAPS: 0,0 0,1 0,2  ... (4)\n");
    RiffBlockSCEN scene;
    scene.Children = {{1, -1, 0}, {-1, 2, 8}};
    EXPECT_EQ(Printed(scene), "Name: , Length: 0\n  SCEN: 1,-1,0 -1,2,8  ... (2)\n");
    RiffBlockXANK key;
    key.Text = "knob";
    EXPECT_EQ(Printed(key), "Name: , Length: 0\n  knob\n");
    EXPECT_EQ(Printed(RiffBlockVisibilityInfo()), "");
}

TEST(ModelBlocksPrint, NumbersHaveFourDigitsAndThePrecisionStays) {
    RiffBlockTRAN matrices;
    Utils::Matrix4 matrix;
    matrix << 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 1.23456f;
    matrices.Children.assign(4, matrix);
    const std::string one = "-  1 5 9 13 \n-  2 6 10 14 \n-  3 7 11 15 \n-  4 8 12 1.235 \n\n"; // by columns
    EXPECT_EQ(Printed(matrices, "-"), "-Name: , Length: 0\n-  Matrices: (4)\n" + one + one + one);

    RiffBlockVERT vertices;
    vertices.Children.assign(4, {1.23456f, -2, 1234567});
    RiffBlockPART part;
    part.Type = 3;
    std::ostringstream stream;
    vertices.Print("-", stream);
    EXPECT_EQ(stream.precision(), 4);
    stream.precision(6);
    part.Print("-", stream);
    EXPECT_EQ(stream.precision(), 4);
    const std::string vertex = "-      1.235, -2, 1.235e+06\n";
    EXPECT_EQ(stream.str(),
              "-Name: , Length: 0\n-  Vertices: (4)\n" + vertex + vertex + vertex + "-Name: , Length: 0\n-  Type: 3\n");
}

} // namespace CockpitModel
