#pragma once

#include <algorithm>
#include <cmath>

namespace Utils {

/// Truncated towards zero and kept within a million of it; 0 for NaN. Files may contain any float.
inline int Truncated(float value) {
    constexpr float kLimit = 1e6f;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

} // namespace Utils
