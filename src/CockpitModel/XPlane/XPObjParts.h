#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <vector>

namespace CockpitModel {

/// Whether a draw call becomes a part.
bool IsPlainPart(const XPObjDrawCall& call);
bool IsFullPart(const XPObjDrawCall& call, const XPObjData& data);

/// Adds the parts of the draw calls to a model, with their mouse rectangles. Their indices are those of the object.
void AddParts(const XPObjData& data, const std::vector<XPObjDrawCall>& calls, ModelData& model, Reading reading);

} // namespace CockpitModel
