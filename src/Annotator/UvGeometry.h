#pragma once

#include "CockpitModel/NodePart.h"

#include <array>
#include <vector>

namespace Annotator {

/// Pixels from the top left corner of a square that shows the texture space from (0, 0) to (1, 1).
struct UvPoint {
    int x = 0, y = 0;
};
struct UvRectangle {
    UvPoint corner;
    UvPoint size;
};
std::vector<std::array<UvPoint, 3>> UvTriangles(const CockpitModel::NodePart& part, int side);
/// The clickable rectangles of the panel on the part's texture.
std::vector<UvRectangle> UvPanelRectangles(const CockpitModel::NodePart& part, int side);

} // namespace Annotator
