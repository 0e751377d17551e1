#pragma once

#include "Annotator/Window/AircraftSelectorDropdown.h"
#include "Sim/AircraftListLoader.h"

#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/statusbr.h>

namespace Annotator {

/// The main window. User interface thread.
class AnnotatorWindow : public wxFrame {
public:
    /// The loader is not owned. What the scan of the aircraft throws passes through.
    explicit AnnotatorWindow(Sim::AircraftListLoader* loader);

private:
    void MakeMenus();
    wxPanel* MakeMainPanel();
    void MakeStatusBar();

    void OnSaveDetectedData(wxCommandEvent& event);

    Sim::AircraftListLoader* aircraftListLoader;
    AircraftSelectorDropdown* aircraftSelector = nullptr;
    wxStatusBar* statusBar = nullptr;
};

} // namespace Annotator
