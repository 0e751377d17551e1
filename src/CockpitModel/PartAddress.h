#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace CockpitModel {

/// Identifies a part in files and arguments by the index of its node and its index in that node's parts. The cockpit
/// may have no such part; see SceneGraph::FindPart.
struct PartAddress {
    std::int32_t node = -1, part = -1;

    auto operator<=>(const PartAddress&) const = default;
};

/// "12,0": node and part.
std::string ToText(PartAddress address);
/// Empty unless the text is two integers separated by a comma.
std::optional<PartAddress> ParsePartAddress(std::string_view text);

} // namespace CockpitModel
