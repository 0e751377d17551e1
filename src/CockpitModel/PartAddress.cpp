#include "CockpitModel/PartAddress.h"

#include <charconv>

namespace CockpitModel {

namespace {

bool ReadIndex(std::string_view text, std::int32_t& index) {
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, index);
    return error == std::errc() && next == end;
}

} // namespace

std::string ToText(PartAddress address) {
    return std::to_string(address.node) + "," + std::to_string(address.part);
}

std::optional<PartAddress> ParsePartAddress(std::string_view text) {
    const std::size_t comma = text.find(',');
    PartAddress address;
    if (comma == std::string_view::npos || !ReadIndex(text.substr(0, comma), address.node) ||
        !ReadIndex(text.substr(comma + 1), address.part))
        return std::nullopt;
    return address;
}

} // namespace CockpitModel
