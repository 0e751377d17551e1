// The menu that moves the camera and chooses the colours of the parts.
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/CommandKeys.h"
#include "Annotator/Window/LegendPicture.h"
#include "Annotator/Window/ProblemBox.h"

#include <utility>
#include <wx/menu.h>
#include <wx/textentry.h>

namespace Annotator {

void AnnotatorWindow::MakeViewMenu(wxMenuBar& bar) {
    auto* menu = new wxMenu;
    pilotsEyeItem = AppendView(*menu, "Pilot's Eye\tF5", &AnnotatorWindow::ShowPilotsEye);
    framePartItem = AppendView(*menu, "Frame Part\tF6", &AnnotatorWindow::FramePart);
    frameCockpitItem = AppendView(*menu, "Frame Cockpit\tF7", &AnnotatorWindow::FrameCockpit);
    menu->AppendSubMenu(MakeColoursMenu(), "Colours");
    AppendSurroundings(*menu);
    bar.Append(menu, "View");
    EnableViews();
    Bind(wxEVT_CHAR_HOOK, &AnnotatorWindow::OnCharHook, this);
}

wxMenuItem* AnnotatorWindow::AppendView(wxMenu& menu, const wxString& label, void (AnnotatorWindow::*show)()) {
    wxMenuItem* const item = menu.Append(wxID_ANY, label);
    menu.Bind(
        wxEVT_MENU,
        [this, show](wxCommandEvent&) {
            RunGuarded(
                this, [&] { (this->*show)(); }, FrameFailureText);
        },
        item->GetId());
    return item;
}

wxMenu* AnnotatorWindow::MakeColoursMenu() {
    auto* menu = new wxMenu;
    static constexpr std::pair<const char*, PartColours> choices[] = {
        {"Standard", PartColours::Standard}, {"By Type", PartColours::ByType}, {"By Result", PartColours::ByResult}};
    for (const auto& [label, colours] : choices) {
        const wxMenuItem* const item = menu->AppendRadioItem(wxID_ANY, label);
        menu->Bind(
            wxEVT_MENU,
            [this, chosen = colours](wxCommandEvent&) {
                RunGuarded(
                    this, [&] { ShowColours(chosen); }, FrameFailureText);
            },
            item->GetId());
    }
    return menu;
}

void AnnotatorWindow::AppendSurroundings(wxMenu& menu) {
    wxMenuItem* const item = menu.AppendCheckItem(wxID_ANY, "Surroundings");
    item->Check();
    menu.Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { preview->ShowSurroundings(event.IsChecked()); }, item->GetId());
}

/// The toolkit runs the menus' commands for their keys; not while the user types.
void AnnotatorWindow::OnCharHook(wxKeyEvent& event) {
    if (!IsCommandKey(event.GetKeyCode()) || !dynamic_cast<wxTextEntry*>(FindFocus()))
        event.Skip();
}

void AnnotatorWindow::EnableViews() {
    pilotsEyeItem->Enable(session.Scene() != nullptr);
    frameCockpitItem->Enable(session.Scene() != nullptr);
    framePartItem->Enable(session.SelectedPart() != nullptr);
}

void AnnotatorWindow::ShowPilotsEye() {
    if (session.Cockpit())
        canvas->control.MoveTo({.position = CameraPlace(*session.Cockpit())});
}

void AnnotatorWindow::FramePart() {
    if (const CockpitModel::NodePart* const part = session.SelectedPart())
        MoveTo(
            Annotator::FramePart(*session.Scene(), *part, CameraPlace(*session.Cockpit()), canvas->control.Aspect()));
}

void AnnotatorWindow::FrameCockpit() {
    if (session.Scene())
        MoveTo(Annotator::FrameCockpit(*session.Scene(), canvas->control.Aspect()));
}

void AnnotatorWindow::MoveTo(const std::optional<Framing>& framing) {
    if (framing)
        canvas->control.MoveTo(framing->pose);
}

/// After a load: at the pilot's eye. In the full reading, the cockpit of some aircraft is out of sight from there.
void AnnotatorWindow::PlaceCamera() {
    CanvasControl& control = canvas->control;
    control.StopMove();
    control.camera.SetPosition(CameraPlace(*session.Cockpit()));
    if (session.Reading() == CockpitModel::Reading::Plain)
        return;
    session.Scene()->SyncFromModel(*session.Model());
    session.Scene()->Refresh();
    const auto all = [](const CockpitModel::NodePart&) { return true; };
    if (!SeesAnyPart(*session.Scene(), all, control.camera.ViewMatrix(), control.projection))
        FrameCockpit();
}

void AnnotatorWindow::ShowColours(PartColours colours) {
    legend->Show(LegendPicture(*this, Legend(colours)));
    preview->ShowColours(colours);
}

} // namespace Annotator
