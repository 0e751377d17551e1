#include "CockpitModel/XPlane/NumberText.h"

#include <charconv>
#include <limits>

namespace CockpitModel::NumberText {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// std::from_chars that also accepts a leading "+" and rejects words such as "inf". A number out of range reads as the
/// lowest or the greatest value.
template <typename Number>
NumberRead<Number> Read(const char* at, const char* end, Number lowest, Number greatest) {
    const bool negative = *at == '-';
    const char* digits = at + (negative || *at == '+');
    if (!IsDigit(*digits) && *digits != '.')
        return {};
    Number value = 0;
    const std::from_chars_result result = std::from_chars(negative ? at : digits, end, value);
    if (result.ec == std::errc::invalid_argument)
        return {};
    if (result.ec == std::errc::result_out_of_range)
        value = negative ? lowest : greatest;
    return {value, result.ptr};
}

} // namespace

NumberRead<float> ReadAnyFloat(const char* at, const char* end) {
    return Read<float>(at, end, 0, 0);
}

NumberRead<std::int32_t> ReadAnyInteger(const char* at, const char* end) {
    using Limits = std::numeric_limits<std::int32_t>;
    return Read(at, end, Limits::min(), Limits::max());
}

} // namespace CockpitModel::NumberText
