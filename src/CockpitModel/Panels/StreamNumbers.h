#pragma once

#include <locale>
#include <sstream>
#include <string>

namespace CockpitModel {

/// The number at the start of a text, as a stream of the classic locale reads it: leading white space is skipped and
/// anything after the number is ignored. 0 if there is no number.
inline float FloatFromText(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    float number = 0;
    return stream >> number ? number : 0.0f;
}

} // namespace CockpitModel
