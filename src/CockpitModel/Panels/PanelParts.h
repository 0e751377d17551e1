#pragma once

#include "CockpitModel/Touch/MouseRect.h"
#include "Rendering/GeometryVertex.h"

#include <vector>

namespace CockpitModel {

struct NodePart;
struct PanelEntry;

/// What a part shows of one clickable rectangle of a panel.
struct PanelPartEntry {
    std::vector<Rendering::GeometryVertex> vertices; ///< three a triangle, in the space of the part
    MouseRect rect;
};

/// Appends the share of the part's surface that shows the entry's rectangle, a little off the surface, and nothing when
/// the part shows none of it. A triangle whose texture coordinates nearly coincide, or lie beyond all reason, shows
/// nothing.
void ClipEntryToPart(const PanelEntry& entry, const NodePart& part, std::vector<PanelPartEntry>& out);

} // namespace CockpitModel
