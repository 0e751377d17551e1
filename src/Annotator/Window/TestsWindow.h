#pragma once

#include "CockpitModel/Reading.h"
#include "Sim/AircraftListLoader.h"

#include <wx/frame.h>
#include <wx/grid.h>

namespace Annotator {

/// The result of one run of all tests in one reading, one row per aircraft with tests.
class TestsWindow : public wxFrame {
public:
    /// Runs the tests before it returns; exceptions are not caught. The loader is not stored.
    explicit TestsWindow(Sim::AircraftListLoader* loader, CockpitModel::Reading reading = CockpitModel::Reading::Plain);

private:
    void AddFullColumns();

    wxGrid* grid;
};

} // namespace Annotator
