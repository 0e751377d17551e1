#include "Annotator/Window/TestsWindow.h"

#include "Annotator/Window/WindowFixture.h"
#include "Support/Installation.h"

namespace {

using namespace Support;

std::string RowText(const wxGrid& grid, int row) {
    std::string text;
    for (int column = 0; column < grid.GetNumberCols(); ++column)
        text += grid.GetCellValue(row, column).ToStdString(wxConvUTF8) + "|";
    return text;
}

TEST(TestsWindow, ShowsARowForEachAircraftWithATest) {
    const Installation installation;
    const WorkingDirectory inside(installation.path);
    MadeAircraftList loader;
    for (const char* name : {"Plain", "Overrides", "Caf\xC3\xA9"})
        loader.aircraft.emplace_back(name, std::string("Made/") + name, MakerOf(LeverModel()));
    installation.Annotations("Overrides",
                             "<Override><NodeId>0</NodeId><PartId>0</PartId><Reverse>1</Reverse></Override>");
    installation.Annotations("Caf\xC3\xA9",
                             Expectation(0, 0, "None") + Expectation(1, 1, "Twist") + Expectation(2, 0, "None"));

    auto* window = new Annotator::TestsWindow(&loader);
    EXPECT_EQ(window->GetTitle(), "Vorelle Batch Tests");
    EXPECT_EQ(window->GetSize(), wxSize(1400, 800));
    const auto& grid = *Find<wxGrid>(*window);
    ASSERT_EQ(grid.GetNumberCols(), 4);
    const char* const labels[] = {"Aircraft", "Passed", "Failed", "Total"};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(grid.GetColLabelValue(column), labels[column]);
    ASSERT_EQ(grid.GetNumberRows(), 2);
    EXPECT_EQ(RowText(grid, 0), "||||");
    EXPECT_EQ(RowText(grid, 1), "Caf\xC3\xA9|2|1|3|");
    window->Destroy();
    PumpFrames(1);
}

} // namespace
