#pragma once

#include "CockpitModel/ModelData.h"

#include <string>

namespace Annotator {

/// Percent of the position's range, from 0 to 100 for a slider.
int SliderPercent(const CockpitModel::ModelAnimation& animation);
/// Moves all animations of a dataref to a fraction of their time axis. False if there is none.
bool MoveAnimations(CockpitModel::ModelData& model, const std::string& dataref, float fraction);

} // namespace Annotator
