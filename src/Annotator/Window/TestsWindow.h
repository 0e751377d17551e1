#pragma once

#include "Sim/AircraftListLoader.h"

#include <wx/frame.h>
#include <wx/grid.h>

namespace Annotator {

/// The result of one run of all tests, one row per aircraft with tests.
class TestsWindow : public wxFrame {
public:
    /// Runs the tests before it returns; exceptions are not caught. The loader is not stored.
    explicit TestsWindow(Sim::AircraftListLoader* loader);

private:
    wxGrid* grid;
};

} // namespace Annotator
