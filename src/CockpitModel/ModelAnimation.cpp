#include "CockpitModel/ModelAnimation.h"

#include "CockpitModel/MotionTable.h"

namespace CockpitModel {

void ApplyAnimation(const ModelAnimation& animation, Utils::Matrix4& m, float position) {
    MotionTable table;
    const MotionTable::Motion motion = table.Add(animation);
    table.Apply(motion, m, position);
}

} // namespace CockpitModel
