#include "Annotator/Window/AnnotatorWindow.h"

#include "Annotator/DetectedDataExport.h"
#include "Annotator/FailureTexts.h"
#include "Annotator/RunQueueStage.h"
#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/ProblemBox.h"
#include "Annotator/Window/TestsWindow.h"
#include "Utils/FatalError.h"

#include <cstdlib>
#include <wx/app.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/sizer.h>

namespace Annotator {

namespace {

constexpr int kTabPadding = 36; ///< around a tab's title, so that all tabs are visible

wxPanel* MakePanel(wxWindow* parent, int direction) {
    auto* panel = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxNO_BORDER);
    panel->SetSizer(new wxBoxSizer(direction));
    return panel;
}

void EndProgram(int code) {
    if (wxEventLoopBase* loop = wxTheApp->GetMainLoop())
        loop->ScheduleExit(code);
}

} // namespace

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
    wxPanel* mainPanel = MakePanel(this, wxHORIZONTAL);
    sizer->Add(mainPanel, 1, wxEXPAND);
    MakeStatusBar();
    MakeTree(mainPanel);
    MakeCanvas(mainPanel);
    MakeSidePanel(mainPanel);
    MakePreview();
    aircraftSelector->aircraftSelectedSignal.connect([this](const auto& info) { OnAircraftSelected(info); });
}

AnnotatorWindow::~AnnotatorWindow() {
    // As a child of the frame, the canvas outlives this destructor and would release the scene's textures too late.
    canvas->ReleaseDevice([this] {
        ShowEmptyState();
        preview->ReleaseGpuResources();
        legend->ReleaseGpuResources();
    });
}

void AnnotatorWindow::MakeMenus() {
    auto* tests = new wxMenu;
    tests->Append(wxID_ANY, "Run All Tests");
    auto* detectedData = new wxMenu;
    detectedData->Append(wxID_ANY, "Save Detected Aircraft Data");
    auto* bar = new wxMenuBar;
    bar->Append(tests, "Tests");
    bar->Append(detectedData, "Detected Data");
    MakeReadingMenu(*bar);
    MakeViewMenu(*bar);
    MakePartsMenu(*bar);
    SetMenuBar(bar);
    tests->Bind(wxEVT_MENU, &AnnotatorWindow::OnRunAllTests, this, wxID_ANY, wxID_ANY);
    detectedData->Bind(wxEVT_MENU, &AnnotatorWindow::OnSaveDetectedData, this, wxID_ANY, wxID_ANY);
}

void AnnotatorWindow::MakeStatusBar() {
    statusBar = new wxStatusBar(this, wxID_ANY, wxSTB_DEFAULT_STYLE);
    statusBar->SetFieldsCount(2);
    statusBar->SetStatusText("Loading...", 0);
    statusBar->SetStatusText("Click and drag to rotate view.  Arrow keys or WASD to move.", 1);
    SetStatusBar(statusBar);
}

void AnnotatorWindow::MakeTree(wxPanel* parent) {
    partTree =
        new wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT);
    // The items are black and blue, which is unreadable on the background of a dark theme.
    partTree->SetBackgroundColour(*wxWHITE);
    partTree->SetForegroundColour(*wxBLACK);
    SetAccessibleName(*partTree, "Nodes and parts of the cockpit");
    partTree->Bind(wxEVT_TREE_SEL_CHANGED, &AnnotatorWindow::OnTreeSelectionChanged, this, wxID_ANY, wxID_ANY);
    parent->GetSizer()->Add(partTree, 1, wxEXPAND);
}

void AnnotatorWindow::MakeCanvas(wxPanel* parent) {
    canvas = new DXCanvas(parent, wxID_ANY);
    SetAccessibleName(*canvas, "Cockpit");
    canvas->stages.Add(std::make_shared<Threading::RunQueueStage>(runQueue));
    canvas->failureSignal.connect([this](const std::exception& error) { OnCanvasFailure(error); });
    canvas->clickFailureSignal.connect([this](const std::exception& error) { OnClickFailure(error); });
    parent->GetSizer()->Add(canvas, 4, wxEXPAND);
}

void AnnotatorWindow::MakeSidePanel(wxPanel* parent) {
    wxPanel* panel = MakePanel(parent, wxVERTICAL);
    parent->GetSizer()->Add(panel, 2, wxEXPAND);
    MakeNotebook(panel);

    auto* save = new wxButton(panel, wxID_ANY, "Save");
    save->Bind(wxEVT_BUTTON, &AnnotatorWindow::OnSaveAnnotation, this, wxID_ANY, wxID_ANY);
    panel->GetSizer()->Add(save, 0);

    auto* settings = new wxStaticText(panel, wxID_ANY, "Settings:");
    settings->SetFont(settings->GetFont().Bold());
    panel->GetSizer()->Add(settings, 0);
    showTransparentCheckBox = new wxCheckBox(panel, wxID_ANY, "Show Transparent Objects");
    showTransparentCheckBox->SetValue(true);
    showTransparentCheckBox->Bind(wxEVT_CHECKBOX, &AnnotatorWindow::OnShowTransparent, this, wxID_ANY, wxID_ANY);
    panel->GetSizer()->Add(showTransparentCheckBox, 0);
}

void AnnotatorWindow::MakeNotebook(wxPanel* parent) {
    auto* notebook = new wxNotebook(parent, wxID_ANY);
    parent->GetSizer()->Add(notebook, 1, wxEXPAND);
    interactionPane = new InteractionPane(notebook, wxID_ANY);
    animationsPane = new AnimationsPane(notebook, wxID_ANY);
    partInfoPane = new PartInfoPane(notebook, wxID_ANY);
    testPane = new TestPane(notebook, wxID_ANY);
    textureViewPane = new TextureViewPane(notebook, wxID_ANY);
    const std::pair<wxWindow*, const char*> pages[] = {{interactionPane, "VR Interaction"},
                                                       {animationsPane, "Animations"},
                                                       {partInfoPane, "Info"},
                                                       {testPane, "Tests"},
                                                       {textureViewPane, "UVs"}};
    int tabsWidth = 0;
    for (const auto& [page, title] : pages) {
        notebook->AddPage(page, title, false, wxNotebook::NO_IMAGE);
        tabsWidth += notebook->GetTextExtent(title).x + notebook->FromDIP(kTabPadding);
    }
    notebook->SetMinSize(wxSize(tabsWidth, -1));
    SetAccessibleName(*notebook, "Pages of the selected part");
}

void AnnotatorWindow::MakePreview() {
    preview = std::make_shared<CockpitPreview>();
    preview->partSignal.connect([this](CockpitModel::NodePart* part) { SelectGuarded(part); });
    canvas->stages.Add(preview);
    legend = std::make_shared<CornerPicture>([this] { return canvas->PixelSize(); });
    canvas->stages.Add(legend);
    canvas->control.clickables.push_back(preview);
}

void AnnotatorWindow::OnRunAllTests(wxCommandEvent&) {
    RunGuarded(
        this, [this] { (new TestsWindow(aircraftListLoader, reading))->Show(true); }, TestRunFailureText);
}

void AnnotatorWindow::OnSaveDetectedData(wxCommandEvent&) {
    RunGuarded(
        this,
        [this] {
            const ExportResult result = SaveDetectedData(*aircraftListLoader, reading);
            // While the log is running, failures are only logged.
            if (Utils::FatalErrorReported())
                ShowProblem(this, ExportDoneText(result));
        },
        ExportFailureText);
}

void AnnotatorWindow::OnShowTransparent(wxCommandEvent&) {
    RunGuarded(
        this, [this] { preview->ShowTransparent(showTransparentCheckBox->GetValue()); }, FrameFailureText);
}

void AnnotatorWindow::OnAircraftSelected(const Sim::AircraftInfo& info) {
    pickedAircraft = &info;
    RunGuarded(
        this, [&] { runQueue.Post([this, &info] { LoadGuarded(info); }); },
        [&](const std::exception& error) { return LoadFailureText(info, error); });
}

void AnnotatorWindow::OnClickFailure(const std::exception& error) {
    ShowProblem(this, SelectionFailureText(error));
}

void AnnotatorWindow::OnCanvasFailure(const std::exception& error) {
    const bool hadScene = session.Scene() != nullptr;
    ShowEmptyState();
    ShowProblem(this, FrameFailureText(error));
    // Without a scene the device itself has failed, and every further frame would fail too.
    if (!hadScene)
        EndProgram(EXIT_FAILURE);
}

} // namespace Annotator
