#pragma once

#include "Annotator/AnnotationSession.h"
#include "Annotator/PartList.h"

#include <boost/signals2/signal.hpp>
#include <functional>
#include <string>
#include <vector>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/listctrl.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace Annotator {

/// The window "List of Parts", with a row for each part of the loaded aircraft. It only shows its session; what the
/// user does with parts and records is left to the receivers of its signals. Closing it hides it. User interface
/// thread.
class PartListWindow : public wxFrame {
public:
    /// The session must outlive every call. The menu is the window's first and belongs to it.
    PartListWindow(wxWindow* parent, const AnnotationSession& shownSession, wxMenu* partsMenu);

    /// Reads the parts and their stored annotations, after a load or a save.
    void Read();
    /// Drops the rows, which point into the scene.
    void Clear();
    /// Chooses the row of a part, or none, without a signal. If it is one of the chosen rows, all of them stay chosen.
    void ShowPart(const CockpitModel::NodePart* part);
    void FocusRows() { rows->SetFocus(); }

    boost::signals2::signal<void(CockpitModel::NodePart*)> partSignal;           ///< the user chose its row
    boost::signals2::signal<void(CockpitModel::NodePart*)> frameSignal;          ///< Enter or a double click on its row
    boost::signals2::signal<void(const std::vector<RecordUpdate>&)> applySignal; ///< after the user's confirmation
    boost::signals2::signal<void()> undoSignal;                                  ///< after the user's confirmation

private:
    class RowControl;
    /// A command of the menu "Change", which is also the rows' context menu.
    struct Command {
        const char* title; ///< null for a separator
        void (PartListWindow::*run)();
        bool (PartListWindow::*canRun)() const;
    };
    static const std::vector<Command>& Commands();

    void MakeFilter(wxPanel* panel);
    void MakeRows(wxPanel* panel);
    void MakeMenus(wxMenu* partsMenu);
    wxMenu* MakeChangeMenu();
    wxMenu* MakeSortMenu();

    void OnRowChosen(wxListEvent& event);
    void OnRowActivated(wxListEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnCharHook(wxKeyEvent& event);
    void OnClose(wxCloseEvent& event);
    void OnIdle(wxIdleEvent& event);

    void Rearrange(const std::function<void()>& arrange);
    void ChooseRows(const std::vector<CockpitModel::NodePart*>& parts);
    void SetRowState(std::size_t position, long state);
    void ShowOrder();
    void ShowCounts();
    void EnableCommands(wxMenu& menu) const;
    std::vector<CockpitModel::NodePart*> ChosenParts() const;

    bool HasChosen() const { return rows->GetSelectedItemCount() > 0; }
    bool HasRows() const { return list.ShownCount() > 0; }
    bool CanUndo() const { return session.CanUndo(); }
    void SetValues();
    void ExpectWhatIsDetected();
    void TakeBackValues();
    void UndoLastChange();
    void ChooseAllRows();
    bool IsConfirmed(const char* command, std::size_t changed, std::size_t chosen);

    const AnnotationSession& session;
    PartList list;
    wxListCtrl* rows = nullptr;
    wxStaticText* countText = nullptr;
    wxMenu* changeMenu = nullptr;
    std::vector<wxMenuItem*> sortItems; ///< the order of the tree, then the columns
    bool choosing = false;              ///< this window chooses rows, not the user
};

} // namespace Annotator
