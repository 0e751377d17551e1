#pragma once

#include <istream>

namespace CockpitModel {

/// Whether an object's text has a manipulator that a hand can work, or an animation of a yoke's roll or pitch. Looks at
/// no vertex or index, which are almost all of the text.
bool CanBeTouched(std::istream& object);

} // namespace CockpitModel
