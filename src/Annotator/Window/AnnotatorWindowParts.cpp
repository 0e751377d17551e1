// The menu that lists the parts and steps through those that need work, and what the list of parts asks for.
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/PartListWindow.h"
#include "Annotator/Window/ProblemBox.h"

#include <wx/menu.h>

namespace Annotator {

namespace {

constexpr const char* kNoAircraft = "No aircraft is loaded. Select one in the list at the top of the main window.";

} // namespace

void AnnotatorWindow::MakePartsMenu(wxMenuBar& bar) {
    bar.Append(NewPartsMenu("List of Parts\tF8", [this] { ShowPartList(); }), "Parts");
}

/// The main window and the list have the same menu, except for its first command, which leads to the other window.
wxMenu* AnnotatorWindow::NewPartsMenu(const char* title, const std::function<void()>& showOther) {
    auto* menu = new wxMenu;
    const auto add = [&](const wxString& label, const std::function<void()>& run) {
        menu->Bind(
            wxEVT_MENU, [this, run](wxCommandEvent&) { RunGuarded(this, run, SelectionFailureText); },
            menu->Append(wxID_ANY, label)->GetId());
    };
    add(title, showOther);
    menu->AppendSeparator();
    for (const PartStep& step : PartSteps())
        add(wxString(step.title) + "\t" + step.key, [this, &step] { GoToPart(step); });
    return menu;
}

void AnnotatorWindow::ShowPartList() {
    if (!partListWindow)
        MakePartList();
    if (!partListWindow->IsShown()) {
        partListWindow->Read();
        partListWindow->Show();
    }
    partListWindow->Iconize(false);
    partListWindow->Raise();
    partListWindow->FocusRows();
}

void AnnotatorWindow::MakePartList() {
    partListWindow = new PartListWindow(this, session, NewPartsMenu("Main Window\tF8", [this] { Raise(); }));
    partListWindow->partSignal.connect([this](CockpitModel::NodePart* part) { SelectGuarded(part); });
    partListWindow->frameSignal.connect([this](CockpitModel::NodePart* part) {
        SelectPart(part);
        FramePart();
    });
    partListWindow->applySignal.connect(
        [this](const std::vector<RecordUpdate>& updates) { ChangeRecords([&] { return session.Apply(updates); }); });
    partListWindow->undoSignal.connect([this] { ChangeRecords([this] { return session.Undo(); }); });
}

void AnnotatorWindow::GoToPart(const PartStep& step) {
    if (CockpitModel::NodePart* const part = FindPart(session, step.test, step.backward))
        SelectPart(part);
    else
        ShowNote(this, session.Scene() ? step.noneText : kNoAircraft);
}

/// The pages keep what the user has not saved.
void AnnotatorWindow::ChangeRecords(const std::function<AnnotationSaveResult()>& change) {
    CommitPages();
    const AnnotationSaveResult result = change();
    ShowRecord();
    ShowSaveResult(result);
}

void AnnotatorWindow::ReadPartList() {
    if (partListWindow && partListWindow->IsShown())
        partListWindow->Read();
}

} // namespace Annotator
