#pragma once

#include "Utils/LinearAlgebra.h"

#include <cstddef>
#include <vector>

namespace Annotator {

struct GroupLimits {
    std::size_t members = 60; ///< of a group
    std::size_t groups = 12;  ///< come first: with more points than both allow, groups have more members
};

/// Splits points into groups of neighbours, as indices in ascending order. Groups get two thirds of the members that
/// they may have, if that does not take too many groups, so that a split can be where the points are far apart. The
/// same points give the same groups.
std::vector<std::vector<std::size_t>> GroupByPlace(const std::vector<Utils::Vector3>& points,
                                                   const GroupLimits& limits = {});

} // namespace Annotator
