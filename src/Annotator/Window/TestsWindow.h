#pragma once

#include "Sim/AircraftListLoader.h"

#include <wx/frame.h>
#include <wx/grid.h>

namespace Annotator {

/// The result of one run of all tests, a row for each aircraft that has any.
class TestsWindow : public wxFrame {
public:
    /// Runs the tests before it returns; what stops the run passes through. The loader is not kept.
    explicit TestsWindow(Sim::AircraftListLoader* loader);

private:
    wxGrid* grid;
};

} // namespace Annotator
