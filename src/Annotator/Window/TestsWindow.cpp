#include "Annotator/Window/TestsWindow.h"

#include "Annotator/ExpectationCheck.h"
#include "Annotator/PaneTexts.h"
#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/WxText.h"

#include <wx/sizer.h>

namespace Annotator {

namespace {

using CockpitModel::Reading;

/// Columns of the full reading only.
constexpr int kAsPlainColumn = 4, kSourceColumn = 5;

void AppendRow(wxGrid& grid, const AircraftResult& tests) {
    grid.AppendRows(1);
    const int row = grid.GetNumberRows() - 1;
    grid.SetCellValue(row, 0, ToWide(tests.displayName));
    grid.SetCellValue(row, 1, std::to_string(tests.Passed()));
    grid.SetCellValue(row, 2, std::to_string(tests.Failed()));
    grid.SetCellValue(row, 3, std::to_string(tests.Total()));
    if (tests.reading == Reading::Full) {
        grid.SetCellValue(row, kAsPlainColumn, std::to_string(tests.FailedAsPlain()));
        grid.SetCellValue(row, kSourceColumn, tests.plainExpectations ? kPlainExpectations : "");
    }
}

} // namespace

TestsWindow::TestsWindow(Sim::AircraftListLoader* loader, CockpitModel::Reading reading)
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
    if (reading == Reading::Full)
        AddFullColumns();
    for (const AircraftResult& tests : CheckAllAircraft(*loader, reading)) {
        if (tests.Total() > 0)
            AppendRow(*grid, tests);
    }
    if (reading == Reading::Full)
        grid->AutoSizeColumns(false);
}

void TestsWindow::AddFullColumns() {
    SetTitle("Vorelle Batch Tests, Full Reading");
    grid->AppendCols(2);
    grid->SetColLabelValue(kAsPlainColumn, "Failed as plain");
    grid->SetColLabelValue(kSourceColumn, "Tested with");
}

} // namespace Annotator
