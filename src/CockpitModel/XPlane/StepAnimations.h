#pragma once

#include "CockpitModel/ModelAnimation.h"
#include "CockpitModel/XPlane/XPObjData.h"

namespace CockpitModel {

/// The animation of a node without a step, which moves nothing.
ModelAnimation StillAnimation();
ModelAnimation StepAnimation(const XPObjAnimStep& step);
/// The time axis runs from the least value of the keys to the greatest. The step needs at least one key.
ModelAnimation StepAnimation(const XPObjKeyStep& step);

/// The motion of a step while its dataref is 0, in the model's axes. It continues beyond its ends at the slope there.
Utils::Matrix4 PoseAtZero(const XPObjAnimStep& step);
Utils::Matrix4 PoseAtZero(const XPObjKeyStep& step);

/// Number of keys of the animation of a key-framed step. It can exceed that of the step: a stretch of 180 degrees or
/// more takes several.
std::size_t KeyCount(const XPObjKeyStep& step);

} // namespace CockpitModel
