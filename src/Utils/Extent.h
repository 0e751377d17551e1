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
    void Add(const Extent& other) {
        least = least.cwiseMin(other.least);
        greatest = greatest.cwiseMax(other.greatest);
    }
};

} // namespace Utils
