#pragma once

#include "CockpitModel/Picking/PartRay.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>

namespace Annotator {

/// What the pointer did: the values of CanvasMouseEvent::type.
enum CanvasEvent : std::int32_t {
    kCanvasClick = 0, ///< the left button was released without a drag
    kCanvasMove = 1,  ///< the pointer moved without a drag
};

struct CanvasMouseEvent {
    std::int32_t type = kCanvasClick;
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
