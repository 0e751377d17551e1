#pragma once

#include "Utils/LinearAlgebra.h"

#include <limits>

namespace Utils {

/// The extent of points along the axes; of none, `least` is above `greatest`.
struct Extent {
    Vector3 least = Vector3::Constant(std::numeric_limits<float>::max());
    Vector3 greatest = Vector3::Constant(std::numeric_limits<float>::lowest());

    void Add(const Vector3& point) {
        least = least.cwiseMin(point);
        greatest = greatest.cwiseMax(point);
    }
    bool IsEmpty() const { return least.x() > greatest.x(); }
    Vector3 Middle() const { return (least + greatest) / 2.0f; }
};

} // namespace Utils
