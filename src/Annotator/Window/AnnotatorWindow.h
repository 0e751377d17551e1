#pragma once

#include "Annotator/AnnotationSession.h"
#include "Annotator/Preview/CockpitPreview.h"
#include "Annotator/Preview/CornerPicture.h"
#include "Annotator/Preview/Framing.h"
#include "Annotator/Window/AircraftSelectorDropdown.h"
#include "Annotator/Window/AnimationsPane.h"
#include "Annotator/Window/DXCanvas.h"
#include "Annotator/Window/InteractionPane.h"
#include "Annotator/Window/PartInfoPane.h"
#include "Annotator/Window/TestPane.h"
#include "Annotator/Window/TextureViewPane.h"
#include "Sim/AircraftListLoader.h"
#include "Threading/RunQueue.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>
#include <wx/frame.h>
#include <wx/statusbr.h>
#include <wx/treectrl.h>

namespace Annotator {

class PartListWindow;
struct PartStep;

/// The main window, from the choice of an aircraft to a saved annotation. It shows the state of its session, whose
/// scene graph it shares with the preview. Without an aircraft, that is at startup and after a failed load, tree, panes
/// and preview are empty. User interface thread.
class AnnotatorWindow : public wxFrame {
public:
    /// The loader is not owned. Exceptions of the scan are not caught.
    explicit AnnotatorWindow(Sim::AircraftListLoader* loader);
    ~AnnotatorWindow() override;

    /// Runs in a frame, from the run queue. A failure throws and leaves no aircraft loaded.
    void LoadAircraft(const Sim::AircraftInfo& info);
    /// Shows a part of the loaded scene, or none, in tree, preview and panes.
    void SelectPart(CockpitModel::NodePart* part);
    /// Moves the camera to the selected part; does nothing without one.
    void FramePart();

private:
    void MakeMenus();
    void MakeReadingMenu(wxMenuBar& bar);
    void MakeViewMenu(wxMenuBar& bar);
    wxMenu* MakeColoursMenu();
    void MakePartsMenu(wxMenuBar& bar);
    wxMenu* NewPartsMenu(const char* title, const std::function<void()>& showOther);
    void MakePartList();
    void AppendSurroundings(wxMenu& menu);
    void MakeStatusBar();
    void MakeTree(wxPanel* parent);
    void MakeCanvas(wxPanel* parent);
    void MakeSidePanel(wxPanel* parent);
    void MakeNotebook(wxPanel* parent);
    void MakePreview();

    void OnRunAllTests(wxCommandEvent& event);
    void OnSaveDetectedData(wxCommandEvent& event);
    void OnFullReading(wxCommandEvent& event);
    void OnCharHook(wxKeyEvent& event);
    void OnTreeSelectionChanged(wxTreeEvent& event);
    void OnSaveAnnotation(wxCommandEvent& event);
    void OnShowTransparent(wxCommandEvent& event);
    void OnAircraftSelected(const Sim::AircraftInfo& info);
    void OnClickFailure(const std::exception& error);
    void OnCanvasFailure(const std::exception& error);

    wxMenuItem* AppendView(wxMenu& menu, const wxString& label, void (AnnotatorWindow::*show)());
    void ShowPilotsEye();
    void FrameCockpit();
    void MoveTo(const std::optional<Framing>& framing);
    void PlaceCamera();
    void ShowColours(PartColours colours);
    void EnableViews();
    void LoadGuarded(const Sim::AircraftInfo& info);
    void SelectGuarded(CockpitModel::NodePart* part);
    void SaveAnnotation();
    void CommitPages();
    void ShowRecord();
    void ShowSaveResult(const AnnotationSaveResult& result);
    bool MayDiscardEdit();
    void ShowPartList();
    void ReadPartList();
    void GoToPart(const PartStep& step);
    void ChangeRecords(const std::function<AnnotationSaveResult()>& change);
    void RebuildTree();
    void AddNodeItems(CockpitModel::Node& node);
    const wxTreeItemId& ItemOf(const CockpitModel::NodePart& part) const;
    void HighlightItem(const wxTreeItemId& item);
    void EmptyTree();
    void ShowEmptyState();

    Sim::AircraftListLoader* aircraftListLoader;
    AircraftSelectorDropdown* aircraftSelector = nullptr;
    wxTreeCtrl* partTree = nullptr;
    DXCanvas* canvas = nullptr;
    wxStatusBar* statusBar = nullptr;
    InteractionPane* interactionPane = nullptr;
    AnimationsPane* animationsPane = nullptr;
    PartInfoPane* partInfoPane = nullptr;
    TestPane* testPane = nullptr;
    TextureViewPane* textureViewPane = nullptr;
    wxCheckBox* showTransparentCheckBox = nullptr;
    Threading::RunQueue runQueue; ///< work for the next frame
    AnnotationSession session;    ///< outlives the preview, which points into its scene
    std::shared_ptr<CockpitPreview> preview;
    std::vector<wxTreeItemId> nodeItems; ///< by node index
    std::unordered_map<const CockpitModel::NodePart*, wxTreeItemId> partItems;
    std::optional<wxTreeItemId> highlightedItem;
    CockpitModel::Reading reading = CockpitModel::Reading::Plain; ///< of the next load, export and run of the tests
    const Sim::AircraftInfo* pickedAircraft = nullptr;            ///< the selector's
    wxMenuItem* fullReadingItem = nullptr;
    wxMenuItem *pilotsEyeItem = nullptr, *framePartItem = nullptr, *frameCockpitItem = nullptr;
    std::shared_ptr<CornerPicture> legend;    ///< of the parts' colours
    PartListWindow* partListWindow = nullptr; ///< made when it is first shown
};

} // namespace Annotator
