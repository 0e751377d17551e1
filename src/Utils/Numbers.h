#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace Utils {

/// The number that a whole text is; empty for every other text. A "+" and blanks are not part of a number.
template <typename Number>
std::optional<Number> ParseWhole(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

} // namespace Utils
