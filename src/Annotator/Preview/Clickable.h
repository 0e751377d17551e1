#pragma once

#include "CockpitModel/Picking/PartRay.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>

namespace Annotator {

struct CanvasMouseEvent {
    std::int32_t type = 0;     ///< 0: the left button was released without a drag; 1: the pointer moved without a drag
    CockpitModel::PartRay ray; ///< view space
    Utils::Matrix4 view = Utils::Matrix4::Identity();
    Utils::Matrix4 projection = Utils::Matrix4::Identity();
};

/// Something that takes pointer events of the canvas.
class Clickable {
public:
    virtual ~Clickable() = default;
    virtual void OnMouseEvent(const CanvasMouseEvent& event) = 0;
};

} // namespace Annotator
