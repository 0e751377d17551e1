#include "Annotator/AnimationPosition.h"

#include "Utils/Truncated.h"

namespace Annotator {

int SliderPercent(const CockpitModel::ModelAnimation& animation) {
    return Utils::Truncated(animation.position * 100.0f);
}

bool MoveAnimations(CockpitModel::ModelData& model, const std::string& dataref, float fraction) {
    bool found = false;
    for (CockpitModel::ModelAnimation& animation : model.animations) {
        if (animation.name != dataref)
            continue;
        animation.position = fraction * animation.length / 100.0f;
        found = true;
    }
    return found;
}

} // namespace Annotator
