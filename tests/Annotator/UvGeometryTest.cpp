#include "Annotator/UvGeometry.h"

#include "CockpitModel/Panels/PanelSet.h"

#include <gmock/gmock.h>
#include <limits>

namespace Annotator {

using testing::ElementsAre;
using testing::FieldsAre;

TEST(UvGeometry, FillsASquareWithTheTextureSpace) {
    CockpitModel::NodePart part;
    part.vertices.resize(5); // a triangle and a rest that is none
    part.vertices[0].texture = {0.255f, 1.0f};
    part.vertices[1].texture = {-0.019f, 0.5f}; // truncated, not rounded down
    part.vertices[2].texture = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()};
    EXPECT_THAT(UvTriangles(part, 100),
                ElementsAre(ElementsAre(FieldsAre(25, 100), FieldsAre(-1, 50), FieldsAre(0, testing::Ge(100000)))));

    EXPECT_TRUE(UvPanelRectangles(part, 100).empty());
    CockpitModel::Panel panel;
    CockpitModel::PanelEntry& entry = panel.Entries.emplace_back();
    entry.U = 0.1f, entry.V = 0.25f, entry.Width = 0.5f, entry.Height = 0.125f;
    part.panel = &panel;
    EXPECT_THAT(UvPanelRectangles(part, 200), ElementsAre(FieldsAre(FieldsAre(20, 50), FieldsAre(100, 25))));
}

} // namespace Annotator
