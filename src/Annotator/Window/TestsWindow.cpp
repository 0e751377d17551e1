#include "Annotator/Window/TestsWindow.h"

#include "Annotator/ExpectationCheck.h"
#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/WxText.h"

#include <wx/sizer.h>

namespace Annotator {

namespace {

void AppendRow(wxGrid& grid, const AircraftResult& tests) {
    grid.AppendRows(1);
    const int row = grid.GetNumberRows() - 1;
    grid.SetCellValue(row, 0, ToWide(tests.displayName));
    grid.SetCellValue(row, 1, std::to_string(tests.Passed()));
    grid.SetCellValue(row, 2, std::to_string(tests.Failed()));
    grid.SetCellValue(row, 3, std::to_string(tests.Total()));
}

} // namespace

TestsWindow::TestsWindow(Sim::AircraftListLoader* loader)
    : wxFrame(nullptr, wxID_ANY, "Vorelle Batch Tests", wxDefaultPosition, wxSize(1400, 800), wxDEFAULT_FRAME_STYLE),
      grid(new wxGrid(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS)) {
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(grid, 1, wxEXPAND);
    SetAccessibleName(*grid, "Test results by aircraft");
    // The first row stays empty; results follow below it.
    grid->CreateGrid(1, 4, wxGrid::wxGridSelectCells);
    const char* const labels[] = {"Aircraft", "Passed", "Failed", "Total"};
    for (int column = 0; column < 4; ++column)
        grid->SetColLabelValue(column, labels[column]);
    for (const AircraftResult& tests : CheckAllAircraft(*loader)) {
        if (tests.Total() > 0)
            AppendRow(*grid, tests);
    }
}

} // namespace Annotator
