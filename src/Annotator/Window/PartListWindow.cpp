#include "Annotator/Window/PartListWindow.h"

#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/CommandKeys.h"
#include "Annotator/Window/ProblemBox.h"
#include "Annotator/Window/WxText.h"

#include <unordered_set>
#include <wx/arrstr.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textentry.h>

namespace Annotator {

using CockpitModel::NodePart;

namespace {

constexpr int kGap = 5, kWidth = 1340, kHeight = 600;
constexpr const char* kRowsName = "Parts of the cockpit";

} // namespace

/// Asks for the texts of the rows that it draws.
class PartListWindow::RowControl : public wxListCtrl {
public:
    RowControl(wxWindow* parent, const PartList& shownList)
        : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL), list(shownList) {}

private:
    wxString OnGetItemText(long row, long column) const override {
        const auto position = static_cast<std::size_t>(row);
        if (position >= list.ShownCount())
            return {};
        return ToWide(list.Shown(position).texts[static_cast<std::size_t>(column)]);
    }

    const PartList& list;
};

PartListWindow::PartListWindow(wxWindow* parent, const AnnotationSession& shownSession, wxMenu* partsMenu)
    : wxFrame(parent, wxID_ANY, "List of Parts", wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE),
      session(shownSession) {
    SetSize(FromDIP(wxSize(kWidth, kHeight)));
    auto* panel = new wxPanel(this);
    panel->SetSizer(new wxBoxSizer(wxVERTICAL));
    MakeFilter(panel);
    MakeRows(panel);
    countText = new wxStaticText(panel, wxID_ANY, "");
    panel->GetSizer()->Add(countText, 0, wxEXPAND | wxALL, FromDIP(kGap));
    MakeMenus(partsMenu);
    Bind(wxEVT_CHAR_HOOK, &PartListWindow::OnCharHook, this);
    Bind(wxEVT_CLOSE_WINDOW, &PartListWindow::OnClose, this);
    Bind(wxEVT_IDLE, &PartListWindow::OnIdle, this);
}

void PartListWindow::MakeFilter(wxPanel* panel) {
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](wxWindow* control, int share) {
        line->Add(control, share, wxALIGN_CENTRE_VERTICAL | wxALL, FromDIP(kGap));
    };
    auto* filter = new wxTextCtrl(panel, wxID_ANY);
    wxArrayString titles;
    for (const PartChoice& row : PartChoices())
        titles.Add(row.title);
    auto* choice = new wxChoice(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, titles);
    choice->SetSelection(0);
    add(new wxStaticText(panel, wxID_ANY, "Filter:"), 0);
    add(filter, 1);
    add(new wxStaticText(panel, wxID_ANY, "Show:"), 0);
    add(choice, 0);
    panel->GetSizer()->Add(line, 0, wxEXPAND);
    SetAccessibleName(*filter, "Filter");
    SetAccessibleName(*choice, "Parts to show");
    filter->Bind(wxEVT_TEXT,
                 [this, filter](wxCommandEvent&) { Rearrange([&] { list.SetFilter(ToNarrow(filter->GetValue())); }); });
    choice->Bind(wxEVT_CHOICE, [this, choice](wxCommandEvent&) {
        Rearrange([&] { list.SetChoice(static_cast<std::size_t>(choice->GetSelection())); });
    });
}

void PartListWindow::MakeRows(wxPanel* panel) {
    rows = new RowControl(panel, list);
    const int letter = rows->GetCharWidth();
    for (const PartColumn& column : PartColumns())
        rows->AppendColumn(column.title, wxLIST_FORMAT_LEFT, column.width * letter);
    panel->GetSizer()->Add(rows, 1, wxEXPAND);
    SetAccessibleName(*rows, kRowsName);
    for (wxWindow* const child : rows->GetChildren())
        SetAccessibleName(*child, kRowsName);
    rows->Bind(wxEVT_LIST_ITEM_SELECTED, &PartListWindow::OnRowChosen, this);
    rows->Bind(wxEVT_LIST_ITEM_ACTIVATED, &PartListWindow::OnRowActivated, this);
    rows->Bind(wxEVT_CONTEXT_MENU, &PartListWindow::OnContextMenu, this);
    rows->Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        if (event.GetColumn() >= 0)
            Rearrange([&] { list.ClickColumn(static_cast<std::size_t>(event.GetColumn())); });
    });
}

void PartListWindow::Read() {
    Rearrange([this] { list.Read(session); });
}

void PartListWindow::Clear() {
    Rearrange([this] { list.Clear(); });
}

void PartListWindow::ShowPart(const NodePart* part) {
    const auto position = list.PositionOf(part);
    if (!position)
        ChooseRows({});
    else if (!rows->GetItemState(static_cast<long>(*position), wxLIST_STATE_SELECTED))
        ChooseRows({list.Shown(*position).state.part});
}

/// Changes which rows are shown or what they say; chosen parts stay chosen if they are still shown.
void PartListWindow::Rearrange(const std::function<void()>& arrange) {
    const std::vector<NodePart*> chosen = ChosenParts();
    arrange();
    const auto count = static_cast<long>(list.ShownCount());
    if (count != rows->GetItemCount()) {
        rows->DeleteAllItems(); // also resets the focused row, which may no longer exist
        rows->SetItemCount(count);
    }
    ChooseRows(chosen);
    if (!HasChosen())
        ShowPart(session.SelectedPart());
    rows->Refresh();
    ShowOrder();
    ShowCounts();
}

void PartListWindow::ChooseRows(const std::vector<NodePart*>& parts) {
    choosing = true;
    const std::unordered_set<const NodePart*> chosen(parts.begin(), parts.end());
    if (HasRows())
        rows->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
    std::optional<std::size_t> focused;
    for (std::size_t position = 0; !chosen.empty() && position < list.ShownCount(); ++position) {
        const NodePart* const part = list.Shown(position).state.part;
        if (!chosen.contains(part))
            continue;
        SetRowState(position, wxLIST_STATE_SELECTED);
        if (!focused || part == session.SelectedPart())
            focused = position;
    }
    if (focused) {
        SetRowState(*focused, wxLIST_STATE_FOCUSED);
        rows->EnsureVisible(static_cast<long>(*focused));
    }
    choosing = false;
}

void PartListWindow::SetRowState(std::size_t position, long state) {
    rows->SetItemState(static_cast<long>(position), state, state);
}

std::vector<NodePart*> PartListWindow::ChosenParts() const {
    std::vector<NodePart*> parts;
    for (long row = -1; (row = rows->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) >= 0;)
        parts.push_back(list.Shown(static_cast<std::size_t>(row)).state.part);
    return parts;
}

void PartListWindow::OnRowChosen(wxListEvent& event) {
    const long row = event.GetIndex();
    if (!choosing && row >= 0 && static_cast<std::size_t>(row) < list.ShownCount())
        partSignal(list.Shown(static_cast<std::size_t>(row)).state.part);
}

void PartListWindow::OnRowActivated(wxListEvent& event) {
    if (event.GetIndex() < 0)
        return;
    RunGuarded(
        this, [&] { frameSignal(list.Shown(static_cast<std::size_t>(event.GetIndex())).state.part); },
        FrameFailureText);
}

void PartListWindow::OnContextMenu(wxContextMenuEvent&) {
    const std::unique_ptr<wxMenu> menu(MakeChangeMenu());
    EnableCommands(*menu);
    PopupMenu(menu.get());
}

/// The toolkit runs the menus' commands for their keys; not while the user types.
void PartListWindow::OnCharHook(wxKeyEvent& event) {
    if (!IsCommandKey(event.GetKeyCode()) || !dynamic_cast<wxTextEntry*>(FindFocus()))
        event.Skip();
}

void PartListWindow::OnClose(wxCloseEvent& event) {
    if (!event.CanVeto()) {
        event.Skip();
        return;
    }
    event.Veto();
    Hide();
}

/// The toolkit does not report every way in which rows are chosen.
void PartListWindow::OnIdle(wxIdleEvent& event) {
    if (IsShown()) {
        ShowCounts();
        EnableCommands(*changeMenu);
    }
    event.Skip();
}

void PartListWindow::ShowOrder() {
    const std::optional<PartOrder>& order = list.Order();
    if (order)
        rows->ShowSortIndicator(static_cast<int>(order->column), !order->descending);
    else
        rows->RemoveSortIndicator();
    sortItems[order ? order->column + 1 : 0]->Check();
}

void PartListWindow::ShowCounts() {
    const wxString text = ToWide(CountText(list, static_cast<std::size_t>(rows->GetSelectedItemCount())));
    if (countText->GetLabelText() != text)
        countText->SetLabelText(text);
}

} // namespace Annotator
