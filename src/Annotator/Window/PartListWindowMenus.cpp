// The menus of the list of parts, which sort its rows and change the records of the chosen ones.
#include "Annotator/FailureTexts.h"
#include "Annotator/RecordChange.h"
#include "Annotator/Window/PartChangeDialog.h"
#include "Annotator/Window/PartListWindow.h"
#include "Annotator/Window/ProblemBox.h"

namespace Annotator {

using CockpitModel::NodePart;

namespace {

constexpr const char* kSetValues = "Set Values...";
constexpr const char* kExpectDetected = "Expect What Is Detected";
constexpr const char* kTakeBack = "Take Back Values";
constexpr const char* kUndo = "Undo Last Change";

} // namespace

const std::vector<PartListWindow::Command>& PartListWindow::Commands() {
    using Window = PartListWindow;
    static const std::vector<Command> commands = {{kSetValues, &Window::SetValues, &Window::HasChosen},
                                                  {kExpectDetected, &Window::ExpectWhatIsDetected, &Window::HasChosen},
                                                  {kTakeBack, &Window::TakeBackValues, &Window::HasChosen},
                                                  {nullptr, nullptr, nullptr},
                                                  {kUndo, &Window::UndoLastChange, &Window::CanUndo},
                                                  {nullptr, nullptr, nullptr},
                                                  {"Choose All Rows", &Window::ChooseAllRows, &Window::HasRows}};
    return commands;
}

void PartListWindow::MakeMenus(wxMenu* partsMenu) {
    auto* bar = new wxMenuBar;
    changeMenu = MakeChangeMenu();
    bar->Append(partsMenu, "Parts");
    bar->Append(changeMenu, "Change");
    bar->Append(MakeSortMenu(), "Sort");
    SetMenuBar(bar);
}

wxMenu* PartListWindow::MakeChangeMenu() {
    auto* menu = new wxMenu;
    for (const Command& command : Commands()) {
        if (!command.title) {
            menu->AppendSeparator();
            continue;
        }
        const int id = menu->Append(wxID_ANY, command.title)->GetId();
        menu->Bind(
            wxEVT_MENU,
            [this, run = command.run](wxCommandEvent&) {
                RunGuarded(
                    this, [&] { (this->*run)(); },
                    [this](const std::exception& error) {
                        return SaveFailureText(session.AnnotationPath(), ReasonText(error));
                    });
            },
            id);
    }
    return menu;
}

void PartListWindow::EnableCommands(wxMenu& menu) const {
    for (std::size_t i = 0; i < Commands().size(); ++i) {
        const auto canRun = Commands()[i].canRun;
        wxMenuItem& item = *menu.FindItemByPosition(i);
        if (canRun && item.IsEnabled() != (this->*canRun)())
            item.Enable((this->*canRun)());
    }
}

wxMenu* PartListWindow::MakeSortMenu() {
    auto* menu = new wxMenu;
    const auto add = [&](const char* title, const std::function<void()>& sort) {
        sortItems.push_back(menu->AppendRadioItem(wxID_ANY, title));
        menu->Bind(
            wxEVT_MENU, [this, sort](wxCommandEvent&) { Rearrange(sort); }, sortItems.back()->GetId());
    };
    add("In the Order of the Tree", [this] { list.SetOrder(std::nullopt); });
    for (std::size_t column = 0; column < PartColumns().size(); ++column)
        add(PartColumns()[column].title, [this, column] { list.SetOrder(PartOrder{column}); });
    return menu;
}

void PartListWindow::SetValues() {
    PartChangeDialog dialog(this, session, ChosenParts());
    if (dialog.ShowModal() == wxID_OK)
        applySignal(dialog.Updates());
}

void PartListWindow::ExpectWhatIsDetected() {
    const std::vector<NodePart*> parts = ChosenParts();
    const std::vector<RecordUpdate> updates = ExpectDetected(session, parts);
    if (IsConfirmed(kExpectDetected, updates.size(), parts.size()))
        applySignal(updates);
}

void PartListWindow::TakeBackValues() {
    const std::vector<NodePart*> parts = ChosenParts();
    const std::vector<RecordUpdate> updates = UpdatesOf(session, parts, TakeAllBack());
    if (IsConfirmed(kTakeBack, updates.size(), parts.size()))
        applySignal(updates);
}

void PartListWindow::UndoLastChange() {
    if (IsConfirmed(kUndo, session.UndoUpdates().size(), session.LastAppliedCount()))
        undoSignal();
}

bool PartListWindow::IsConfirmed(const char* command, std::size_t changed, std::size_t chosen) {
    if (changed > 0)
        return Confirm(this, ChangeQuestion(command, changed, chosen));
    ShowNote(this, NothingChangesText(command, chosen));
    return false;
}

void PartListWindow::ChooseAllRows() {
    choosing = true;
    rows->SetItemState(-1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    choosing = false;
}

} // namespace Annotator
