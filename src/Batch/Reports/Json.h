#pragma once

#include "Utils/Text.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace Batch {

/// JSON with ordered members and 32-bit floats, written with enough digits to read the same value back; infinities and
/// NaN are written as null.
using Json =
    nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;

/// Text of a file for JSON, which must be UTF-8.
inline Json JsonText(std::string_view text) {
    return Utils::ToValidUtf8(text);
}

} // namespace Batch
