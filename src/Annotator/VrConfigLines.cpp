#include "Annotator/VrConfigLines.h"

#include "CockpitModel/XPlane/VrConfigFile.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace Annotator {

std::string VrConfigNumber(float number) {
    char digits[128];                             // enough for any float without an exponent
    const float shown = number == 0 ? 0 : number; // no "-0"
    const std::to_chars_result end =
        std::to_chars(std::begin(digits), std::end(digits), shown, std::chars_format::fixed);
    return {digits, end.ptr};
}

std::string VrConfigRounded(float number, float partsOfOne) {
    return " " + VrConfigNumber(std::round(number * partsOfOne) / partsOfOne);
}

std::string VrConfigStructureFault(const CockpitModel::VrConfigFile& file) {
    using enum CockpitModel::VrConfigRule;
    for (const CockpitModel::VrConfigFault& fault : file.faults)
        if (fault.rule == Header || fault.rule == Nesting)
            return "line " + std::to_string(fault.line) + ": found " + fault.found + ", needed " + fault.needed;
    return {};
}

} // namespace Annotator
