// The menu with which the user switches between the plain and the full reading of a cockpit.
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/ProblemBox.h"

#include <wx/menu.h>

namespace Annotator {

using CockpitModel::Reading;

void AnnotatorWindow::MakeReadingMenu(wxMenuBar& bar) {
    auto* menu = new wxMenu;
    fullReadingItem = menu->AppendCheckItem(wxID_ANY, "Full Reading");
    bar.Append(menu, "Reading");
    menu->Bind(wxEVT_MENU, &AnnotatorWindow::OnFullReading, this, wxID_ANY, wxID_ANY);
}

void AnnotatorWindow::OnFullReading(wxCommandEvent& event) {
    RunGuarded(
        this,
        [&] {
            if (!MayDiscardEdit()) {
                fullReadingItem->Check(reading == Reading::Full);
                return;
            }
            reading = event.IsChecked() ? Reading::Full : Reading::Plain;
            if (pickedAircraft)
                OnAircraftSelected(*pickedAircraft);
        },
        SelectionFailureText);
}

/// Asks if the pages show something that was not saved.
bool AnnotatorWindow::MayDiscardEdit() {
    if (!session.SelectedPart())
        return true;
    CommitPages();
    return !session.IsEdited() ||
           Confirm(this, "The changes of the selected part are not saved. Load the aircraft again without them?");
}

} // namespace Annotator
