#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace Utils {

/// The number that the complete text represents; empty for any other text, also one with a leading "+" or blanks.
template <typename Number>
std::optional<Number> ParseWhole(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

} // namespace Utils
