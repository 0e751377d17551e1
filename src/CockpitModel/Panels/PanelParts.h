#pragma once

#include "CockpitModel/Touch/MouseRect.h"
#include "Rendering/GeometryVertex.h"

#include <vector>

namespace CockpitModel {

struct NodePart;
struct PanelEntry;

/// The area of a part that shows one clickable rectangle of a panel.
struct PanelPartEntry {
    std::vector<Rendering::GeometryVertex> vertices; ///< three per triangle, in the space of the part
    MouseRect rect;
};

/// Appends the area of the part's surface that shows the entry's rectangle, slightly above the surface; nothing if the
/// part shows none of it. Triangles whose texture coordinates nearly coincide or are out of range are skipped.
void ClipEntryToPart(const PanelEntry& entry, const NodePart& part, std::vector<PanelPartEntry>& out);

} // namespace CockpitModel
