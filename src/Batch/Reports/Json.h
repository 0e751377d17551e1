#pragma once

#include "Utils/Text.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace Batch {

/// JSON whose members keep their order and whose numbers with a fraction are 32-bit, written with the digits that give
/// the same value back; those that are no numbers are written as null.
using Json =
    nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;

/// Text of a file in JSON, which has to be UTF-8.
inline Json JsonText(std::string_view text) {
    return Utils::ToValidUtf8(text);
}

} // namespace Batch
