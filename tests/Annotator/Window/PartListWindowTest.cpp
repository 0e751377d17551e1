#include "Annotator/Window/PartListWindow.h"

#include "Annotator/Window/PartChangeDialog.h"
#include "Annotator/Window/WindowFixture.h"

#include <boost/filesystem.hpp>

namespace {

using namespace Support;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kFile = "QVRA/Annotations/Trainer.xml";
enum ChangeItem : std::size_t { kSetValues, kExpectDetected, kTakeBack, kUndo = 4, kChooseAll = 6 };

/// The list beside the main window, with the four parts of the trainer: (0,0), the lever (1,0), (1,1) and (2,0).
class PartListWindowTest : public WindowTest {
protected:
    void OpenList() {
        Open();
        Load();
        ChooseMenuItem(PartsMenu(), 0);
        list = Find<Annotator::PartListWindow>(*window);
        rows = Find<wxListCtrl>(*list);
        PumpFrames(3);
    }
    wxMenu& PartsMenu() { return *window->GetMenuBar()->GetMenu(4); }
    void Change(ChangeItem item) {
        ChooseMenuItem(*list->GetMenuBar()->GetMenu(1), item);
        PumpFrames(1);
    }
    /// As the user does with a click, which chooses no other row.
    void ChooseRow(long row) {
        rows->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
        rows->SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }
    std::vector<std::string> Column(int column) {
        std::vector<std::string> texts;
        for (long row = 0; row < rows->GetItemCount(); ++row)
            texts.push_back(rows->GetItemText(row, column).ToStdString());
        return texts;
    }
    std::vector<long> Chosen() {
        std::vector<long> chosen;
        for (long row = -1; (row = rows->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) >= 0;)
            chosen.push_back(row);
        return chosen;
    }
    void Press(long row) {
        wxListEvent event(wxEVT_LIST_ITEM_ACTIVATED, rows->GetId());
        event.m_itemIndex = row;
        event.SetEventObject(rows);
        rows->ProcessWindowEvent(event);
    }

    Annotator::PartListWindow* list = nullptr;
    wxListCtrl* rows = nullptr;
};

TEST_F(PartListWindowTest, ChoosesTheSamePartAsTheMainWindow) {
    OpenList();
    EXPECT_THAT(Column(0), ElementsAre("0,0", "1,0", "1,1", "2,0"));
    tree->SelectItem(Lever());
    EXPECT_THAT(Chosen(), ElementsAre(1));
    ChooseRow(3);
    EXPECT_EQ(IdLabel(), "ID: (2,0)");
    EXPECT_TRUE(IsHighlighted(Item({"N: 0", "N: 1", "N: 2", "P: 0"})));
    rows->SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    EXPECT_EQ(IdLabel(), "ID: (0,0)");
    EXPECT_THAT(Chosen(), ElementsAre(0, 3)) << "several rows stay chosen";
    const Utils::Vector3 before = canvas->control.camera.Position();
    Press(0);
    EXPECT_TRUE(PumpUntil([&] { return canvas->control.camera.Position() != before; })) << "Enter frames the part";
    Load();
    EXPECT_THAT(Chosen(), ElementsAre());
    EXPECT_EQ(rows->GetItemCount(), 4);
    list->Close();
    EXPECT_FALSE(list->IsShown());
    tree->SelectItem(Lever());
    ChooseMenuItem(PartsMenu(), 0);
    EXPECT_TRUE(list->IsShown());
    EXPECT_THAT(Chosen(), ElementsAre(1));
}

TEST_F(PartListWindowTest, FiltersAndSortsAndKeepsTheChosenParts) {
    OpenList();
    ChooseRow(2);
    auto& filter = *Find<wxTextCtrl>(*list);
    filter.SetValue("1,");
    EXPECT_THAT(Column(0), ElementsAre("1,0", "1,1"));
    EXPECT_THAT(Chosen(), ElementsAre(1));
    EXPECT_EQ(IdLabel(), "ID: (1,1)");
    EXPECT_TRUE(FindLabelled<wxStaticText>(*list, "2 of 4 parts, 1 chosen"));
    Choose(*Find<wxChoice>(*list), 2);
    EXPECT_EQ(rows->GetItemCount(), 0) << "none fails";
    Choose(*Find<wxChoice>(*list), 0);
    filter.SetValue("");
    EXPECT_THAT(Chosen(), ElementsAre(2)) << "the selected part";
    for (const char* first : {"0,0", "2,0", "0,0"}) { // ascending, descending, the tree's order
        wxListEvent click(wxEVT_LIST_COL_CLICK, rows->GetId());
        click.SetEventObject(rows);
        rows->ProcessWindowEvent(click);
        EXPECT_EQ(Column(0).front(), first);
        EXPECT_EQ(IdLabel(), "ID: (1,1)");
    }
}

TEST_F(PartListWindowTest, ChangesManyRecordsAfterSayingHowMany) {
    OpenList();
    tree->SelectItem(Lever());
    auto& tooltip = *Find<wxTextCtrl>(*Find<Annotator::InteractionPane>(*window));
    tooltip.SetValue("not saved");
    Change(kChooseAll);
    dialogs.answer = wxID_NO;
    Change(kExpectDetected);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr("Records that change: 4 of 4"));
    EXPECT_FALSE(boost::filesystem::exists(kFile));
    dialogs.answer = wxID_YES;
    Change(kExpectDetected);
    EXPECT_THAT(Column(4), ElementsAre("passed", "passed", "passed", "passed"));
    EXPECT_THAT(Chosen(), ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(tooltip.GetValue(), "not saved");
    EXPECT_EQ(Find<wxChoice>(*Find<Annotator::TestPane>(*window))->GetStringSelection().ToStdString(), Column(1)[1]);
    EXPECT_THAT(folder.Read(kFile), testing::Not(HasSubstr("not saved")));
    Change(kExpectDetected);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr("Nothing to save"));
    Change(kUndo);
    EXPECT_THAT(Column(4), ElementsAre("", "", "", ""));

    dialogs.answer = wxID_OK;
    dialogs.whileUp = [&] {
        auto* dialog = dynamic_cast<Annotator::PartChangeDialog*>(wxTopLevelWindows.GetLast()->GetData());
        ASSERT_TRUE(dialog);
        EXPECT_FALSE(dialog->FindWindow(wxID_OK)->IsEnabled());
        Choose(*Find<wxChoice>(*dialog), 4); // Twist
        EXPECT_TRUE(FindLabelled<wxStaticText>(*dialog, "Records that change: 4 of 4"));
    };
    Change(kSetValues);
    EXPECT_THAT(Column(2), ElementsAre("Twist", "Twist", "Twist", "Twist"));

    dialogs.whileUp = nullptr;
    dialogs.answer = wxID_YES;
    boost::filesystem::remove(kFile);
    folder.Write(kFile + "/in the way", "");
    Change(kTakeBack);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr(folder / kFile));
    EXPECT_THAT(Column(2), ElementsAre("Twist", "Twist", "Twist", "Twist")) << "nothing changed";
}

TEST_F(PartListWindowTest, StepsThroughThePartsThatNeedWork) {
    Open();
    ChooseMenuItem(PartsMenu(), 2);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr("No aircraft is loaded"));
    Load();
    ChooseMenuItem(PartsMenu(), 4);
    EXPECT_EQ(IdLabel(), "ID: (1,0)") << "the only part that can be touched";
    ChooseMenuItem(PartsMenu(), 3);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr("No part of this aircraft fails"));
    Find<wxChoice>(*Find<Annotator::TestPane>(*window))->SetSelection(2);
    Save();
    tree->SelectItem(LargeSquare());
    ChooseMenuItem(PartsMenu(), 3);
    EXPECT_EQ(IdLabel(), "ID: (1,0)") << "it is not Tap";
    ChooseMenuItem(PartsMenu(), 5);
    EXPECT_THAT(dialogs.texts.back(), HasSubstr("has an expected type"));
}

} // namespace
