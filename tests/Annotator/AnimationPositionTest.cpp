#include "Annotator/AnimationPosition.h"

#include "Support/ModelBuilder.h"

#include <gtest/gtest.h>
#include <limits>

namespace Annotator {

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

} // namespace Annotator
