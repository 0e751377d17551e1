#include "Annotator/Window/AnnotatorWindow.h"

#include "Annotator/DetectedDataExport.h"
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/ProblemBox.h"

#include <wx/menu.h>
#include <wx/sizer.h>

namespace Annotator {

AnnotatorWindow::AnnotatorWindow(Sim::AircraftListLoader* loader)
    : wxFrame(nullptr, wxID_ANY, "Vorelle Aircraft Annotator", wxDefaultPosition, wxSize(1400, 800),
              wxDEFAULT_FRAME_STYLE),
      aircraftListLoader(loader) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    SetSizer(sizer);
    MakeMenus();
    aircraftSelector = new AircraftSelectorDropdown(aircraftListLoader, this, wxID_ANY);
    sizer->AddSpacer(5);
    sizer->Add(aircraftSelector, 0, wxEXPAND);
    sizer->AddSpacer(5);
    sizer->Add(MakeMainPanel(), 1, wxEXPAND);
    MakeStatusBar();
}

void AnnotatorWindow::MakeMenus() {
    auto* tests = new wxMenu;
    tests->Append(wxID_ANY, "Run All Tests");
    auto* detectedData = new wxMenu;
    detectedData->Append(wxID_ANY, "Save Detected Aircraft Data");
    auto* bar = new wxMenuBar;
    bar->Append(tests, "Tests");
    bar->Append(detectedData, "Detected Data");
    SetMenuBar(bar);
    detectedData->Bind(wxEVT_MENU, &AnnotatorWindow::OnSaveDetectedData, this, wxID_ANY, wxID_ANY);
}

wxPanel* AnnotatorWindow::MakeMainPanel() {
    auto* panel = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxNO_BORDER);
    panel->SetSizer(new wxBoxSizer(wxHORIZONTAL));
    return panel;
}

void AnnotatorWindow::MakeStatusBar() {
    statusBar = new wxStatusBar(this, wxID_ANY, wxSTB_DEFAULT_STYLE);
    statusBar->SetFieldsCount(2);
    statusBar->SetStatusText("Loading...", 0);
    statusBar->SetStatusText("Click and drag to rotate view.  Arrow keys or WASD to move.", 1);
    SetStatusBar(statusBar);
}

void AnnotatorWindow::OnSaveDetectedData(wxCommandEvent&) {
    try {
        SaveDetectedData(*aircraftListLoader);
    } catch (const std::exception& error) {
        ShowProblem(this, ExportFailureText(error));
    }
}

} // namespace Annotator
