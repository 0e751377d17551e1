#pragma once

#include <cstdint>
#include <string_view>

namespace Rendering {

/// Reads an unsigned number of up to eight bytes, the lowest first. They must be inside the text.
inline std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

} // namespace Rendering
