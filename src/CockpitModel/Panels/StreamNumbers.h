#pragma once

#include <locale>
#include <sstream>
#include <string>

namespace CockpitModel {

/// The number that a text begins with, as a stream of the classic locale reads it: leading white space is skipped and
/// what stands behind the number is not looked at. 0 where there is no number.
inline float FloatFromText(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    float number = 0;
    return stream >> number ? number : 0.0f;
}

} // namespace CockpitModel
