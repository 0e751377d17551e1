#include "CockpitModel/PartAddress.h"

#include "Utils/Numbers.h"

namespace CockpitModel {

std::string ToText(PartAddress address) {
    return std::to_string(address.node) + "," + std::to_string(address.part);
}

std::optional<PartAddress> ParsePartAddress(std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const auto node = Utils::ParseWhole<std::int32_t>(text.substr(0, comma));
    const auto part = Utils::ParseWhole<std::int32_t>(text.substr(comma + 1));
    return node && part ? std::optional(PartAddress{*node, *part}) : std::nullopt;
}

} // namespace CockpitModel
