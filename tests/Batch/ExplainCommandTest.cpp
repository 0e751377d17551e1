#include "Batch/BatchProgram.h"

#include <gmock/gmock.h>

namespace Batch {
namespace {

using Support::Installation;
using Support::ObjText;
using Support::ProgramResult;
using testing::HasSubstr;

TEST(ExplainCommand, TellsTheRuleTheLinesAndTheAnimations) {
    const Installation installation;
    installation.Aircraft("Aircraft/Props/Cub", "Cub",
                          ObjText()
                              .Texture()
                              .Begin()
                              .Line("ANIM_trans 0 0 0 0 0 1 0 5 sim/slide")
                              .Begin()
                              .Line("ANIM_rotate 0 0 1 0 90 0 1 sim/turn")
                              .Drag("sim/lever")
                              .Tris()
                              .End()
                              .End()
                              .NoManip()
                              .Tris());
    const ProgramResult result = RunBatch(installation, {"explain", "Cub", "2,0"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    // TEXTURE is in line 11, the drag in 16. The keys add up to a quarter turn about z, whose vector is sin(45): the
    // mask (1, 1, 0.2929) over its length 1.4442 is (0.6924, 0.6924, 0.2028). (1, 0, 0) sweeps 0.6924, and the
    // corners add up to (0.6924, 0.6924, 0), which is 0.9792 long.
    EXPECT_THAT(result.output, HasSubstr("part 2,0 is Move\n"));
    EXPECT_THAT(result.output, testing::ContainsRegex("because: BalanceFactor 0.979[0-9]* is above 0.3, so Move, not "
                                                      "Twist\n"));
    EXPECT_THAT(result.output, HasSubstr("SweepRadius 0.692"));
    EXPECT_THAT(result.output, HasSubstr("TRIS in line 17, manipulator in line 16 (DragVariable: 0 , 1 -- sim/lever)"));
    EXPECT_THAT(result.output, HasSubstr("    node 2: rotation by sim/turn from 0 to 1\n"
                                         "    node 1: translation by sim/slide from 0 to 5\n"
                                         "    node 0: no animation\n"));
    EXPECT_THAT(RunBatch(installation, {"explain", "Cub", "0,0"}).output, HasSubstr("so None\n"));

    for (const char* part : {"0,1", "9,0", "0", "a,0", "0,-1", "0,0x"})
        EXPECT_EQ(RunBatch(installation, {"explain", "Cub", part}).exitCode, 2) << part;
}

TEST(ExplainCommand, TellsTheScoresOfAllYokes) {
    const Installation installation;
    ObjText object = ObjText().Texture();
    for (const char* right : {"2", "0"})
        object.Begin()
            .Line(std::string("ANIM_trans ") + right + " 0 0 " + right +
                  " 0 0 0 1 sim/cockpit2/controls/yoke_roll_ratio")
            .Begin()
            .Line("ANIM_trans 0 0 0 0 0 0 0 1 sim/cockpit2/controls/yoke_pitch_ratio")
            .Tris()
            .End()
            .End();
    installation.Aircraft("Aircraft/Props/Cub", "Cub", object);
    const ProgramResult result = RunBatch(installation, {"explain", "Cub", "2,0"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    // Neither turns nor travels: a corner at 1 sweeps 1 / sqrt(3), and the axis tip is the node's origin.
    EXPECT_THAT(result.output, HasSubstr("    5.7735  part 4,0, the primary yoke\n    3.7735  part 2,0\n"));
    EXPECT_THAT(result.output, HasSubstr("part 2,0 is YokePart\n"));
}

} // namespace
} // namespace Batch
