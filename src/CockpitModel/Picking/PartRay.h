#pragma once

#include "Utils/LinearAlgebra.h"

namespace CockpitModel {

/// Unit direction; both in the space of whatever it is tested against.
struct PartRay {
    Utils::Vector3 origin = Utils::Vector3::Zero();
    Utils::Vector3 direction = Utils::Vector3::Zero();
};

/// The ray with both its ends moved by the matrix and its direction made a unit again; a zero direction stays zero.
PartRay TransformRay(const PartRay& ray, const Utils::Matrix4& matrix);

} // namespace CockpitModel
