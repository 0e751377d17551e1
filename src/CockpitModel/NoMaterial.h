#pragma once

#include "Utils/RangeCheck.h"

namespace CockpitModel {

/// A part that no TEXTURE line gives a material, so that its cockpit cannot be built.
class NoMaterial : public Utils::OutOfRange {
public:
    using OutOfRange::OutOfRange;
};

} // namespace CockpitModel
