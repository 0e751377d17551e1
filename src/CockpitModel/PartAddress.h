#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace CockpitModel {

/// What files and arguments call a part: the index of its node, and its own index among that node's parts. A cockpit
/// need not have such a part; SceneGraph::FindPart tells.
struct PartAddress {
    std::int32_t node = -1, part = -1;

    auto operator<=>(const PartAddress&) const = default;
};

/// "12,0": node and part.
std::string ToText(PartAddress address);
/// Empty for a text that is not two whole numbers with a comma between them.
std::optional<PartAddress> ParsePartAddress(std::string_view text);

} // namespace CockpitModel
