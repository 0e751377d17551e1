#include "CockpitModel/Blocks/ModelBlocks.h"

#include <gtest/gtest.h>
#include <numeric>
#include <sstream>

namespace CockpitModel {
namespace {

std::string Printed(const RiffBlock& block) {
    std::ostringstream stream;
    block.Print("-", stream);
    return stream.str();
}

template <typename Block>
Block With(decltype(Block::Children) children) {
    Block block;
    block.Children = std::move(children);
    return block;
}

TEST(ModelBlocksPrint, ShowsTheFirstChildrenAndTheirNumber) {
    const std::string head = "-Name: , Length: 0\n";
    std::vector<std::uint32_t> nine(9);
    std::iota(nine.begin(), nine.end(), 0u);
    RiffBlockIND3 named = With<RiffBlockIND3>(nine);
    named.Name = "pool";
    named.Data = "abc";
    EXPECT_EQ(Printed(named), "-Name: pool, Length: 3\n-  Indices: 0 1 2 3 4 5 6 7  ... (9)\n");
    EXPECT_EQ(Printed(RiffBlockIND3()), head + "-  Indices:  ... (0)\n");
    EXPECT_EQ(Printed(With<RiffBlockTEXT>({"a", "b", "c", "d"})), head + "-  a\n-  b\n-  c\n");
    EXPECT_EQ(Printed(With<RiffBlockSGAL>({-1, 2})), head + "-  SGAL: -1 2  ... (2)\n");
    EXPECT_EQ(Printed(With<RiffBlockSGVL>({65535})), head + "-  Visibility Linkages: 65535  ... (1)\n");
    EXPECT_EQ(Printed(With<RiffBlockAMAP>({{0, 0}, {0, 1}, {0, 2}, {}})), head + "-  AMAPS: 0,0 0,1 0,2  ... (4)\n");
    EXPECT_EQ(Printed(With<RiffBlockSCEN>({{1, -1, 0}, {-1, 2, 8}})), head + "-  SCEN: 1,-1,0 -1,2,8  ... (2)\n");
    EXPECT_EQ(Printed(With<RiffBlockMATE>({{.Flags = -1, .TextureDiffuse = 2, .Detail = 3, .Scale = 0.5f}})),
              head + "-  Flags: -1, TextureDiffuse: 2, Detail: 3, Scale: 0.5\n");
    const std::string vertex = "-      1.235, -2, 1.235e+06\n";
    EXPECT_EQ(Printed(With<RiffBlockVERT>({4, Vertex{1.23456f, -2, 1234567}})),
              head + "-  Vertices: (4)\n" + vertex + vertex + vertex);
    Utils::Matrix4 matrix;
    matrix << 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 1.23456f;
    EXPECT_EQ(Printed(With<RiffBlockTRAN>({matrix})),
              head + "-  Matrices: (1)\n-  1 5 9 13 \n-  2 6 10 14 \n-  3 7 11 15 \n-  4 8 12 1.235 \n\n");
    EXPECT_EQ(Printed(RiffBlockPART()), head + "-  Type: 0\n");
    EXPECT_EQ(Printed(RiffBlockXANK()), head + "-  \n");
    EXPECT_EQ(Printed(RiffBlockVisibilityInfo()), "");
}

} // namespace
} // namespace CockpitModel
