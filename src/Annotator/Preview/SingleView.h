#pragma once

#include "Rendering/DrawParams.h"

namespace Annotator {

/// The parameters of a draw to the whole picture, with one eye.
inline Rendering::GeometryDrawParams SingleViewParams() {
    Rendering::GeometryDrawParams params;
    params.leftEye = params.rightEye = false;
    params.singleView = true;
    params.shaderParam1 = 1.0f;
    return params;
}

} // namespace Annotator
