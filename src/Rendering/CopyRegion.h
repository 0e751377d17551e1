#pragma once

#include "Rendering/Context.h"

#include <algorithm>

namespace Rendering {

/// The part of a region, starting at its origin, that is inside the source and fits in the target; 0 pixels if there is
/// none.
inline Size CopiedPart(Size origin, Size region, Size source, Size target) {
    const auto side = [](std::uint32_t from, std::uint32_t length, std::uint32_t sourceEnd, std::uint32_t targetEnd) {
        return from < sourceEnd ? std::min({length, sourceEnd - from, targetEnd}) : 0;
    };
    return {side(origin.width, region.width, source.width, target.width),
            side(origin.height, region.height, source.height, target.height)};
}

} // namespace Rendering
