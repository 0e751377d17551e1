#pragma once

#include "Utils/RangeCheck.h"

namespace CockpitModel {

/// A part has no material because no TEXTURE line gives it one; its cockpit cannot be built.
class NoMaterial : public Utils::OutOfRange {
public:
    using OutOfRange::OutOfRange;
};

} // namespace CockpitModel
