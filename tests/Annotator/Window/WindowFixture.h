#pragma once

#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/Toolkit.h"
#include "Support/DataFolder.h"
#include "Support/MadeAircraft.h"
#include "Support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/menu.h>

namespace Support {

/// A square of two triangles at a distance in front of the pilot's eye, which is at the origin in the sample's
/// cockpit.
inline std::vector<Corner> SquareAhead(float x, float y, float distance, float size) {
    const Corner a{x, y, distance}, b{x + size, y, distance}, c{x + size, y + size, distance}, d{x, y + size, distance};
    return {a, b, c, a, c, d};
}

/// Node 0 with a large square, node 1 below it that "sim/lever" moves by half a metre to the right, with a
/// clickable square in the middle of the view and another square next to it, and node 2 below that with a square at the
/// left.
inline CockpitModel::ModelData LeverModel() {
    ModelBuilder builder;
    builder.Part(0, SquareAhead(-2.0f, -2.0f, 3.0f, 4.0f));
    const int lever = builder.Node(0, "sim/lever", Slide(0.5f, 0, 0));
    builder.Part(lever, SquareAhead(-0.1f, -0.1f, 1.0f, 0.2f));
    builder.Rect(2).Text = "lever & knob";
    builder.Part(lever, SquareAhead(-0.1f, 0.3f, 1.0f, 0.1f));
    builder.Part(builder.Node(lever), SquareAhead(-0.7f, -0.1f, 1.0f, 0.2f));
    for (CockpitModel::Vertex& vertex : builder.model.vertexBlocks[0].Children)
        vertex.nz = -1.0f;
    return std::move(builder.model);
}

/// The real window with an installation in a temporary folder and aircraft created by the test.
class WindowTest : public testing::Test {
protected:
    WindowTest() : inside(folder.path) {
        BindDataFolder();
        boost::filesystem::copy_file(VORELLE_SOURCE_DIR "/data/QVRA/Images/checker.png", folder.path / "panel.png");
        boost::filesystem::create_directories(folder.path / "QVRA");
        loader.aircraft.emplace_back("Trainer", "Made/Trainer", MakerOf(LeverModel()));
    }
    ~WindowTest() override { Close(); }

    void Open() {
        window = new Annotator::AnnotatorWindow(&loader);
        window->Show();
        tree = Find<wxTreeCtrl>(*window);
        canvas = Find<Annotator::DXCanvas>(*window);
        selector = Find<wxChoice>(*window);
        PumpFrames(3);
    }
    void Close() {
        if (!window)
            return;
        window->Destroy();
        PumpFrames(3);
        window = nullptr;
    }
    void Load(int line = 1) {
        Choose(*selector, line);
        PumpFrames(2);
    }

    /// An item by its texts, from the root's children downwards.
    wxTreeItemId Item(const std::vector<std::string>& texts) {
        wxTreeItemId item = tree->GetRootItem();
        for (const std::string& text : texts)
            item = Child(item, text);
        return item;
    }
    wxTreeItemId Child(const wxTreeItemId& parent, const std::string& text) {
        wxTreeItemIdValue cookie;
        wxTreeItemId item = tree->GetFirstChild(parent, cookie);
        while (item.IsOk() && tree->GetItemText(item) != wxString(text))
            item = tree->GetNextChild(parent, cookie);
        EXPECT_TRUE(item.IsOk()) << "no item " << text;
        return item;
    }
    wxTreeItemId Lever() { return Item({"N: 0", "N: 1", "P: 0"}); }
    wxTreeItemId LargeSquare() { return Item({"N: 0", "P: 0"}); }
    /// The items below the root in order, indented by their depth.
    std::string TreeText() { return tree->GetRootItem().IsOk() ? TextBelow(tree->GetRootItem(), "") : ""; }

    bool IsHighlighted(const wxTreeItemId& item) {
        return tree->IsBold(item) && tree->GetItemTextColour(item) == *wxBLUE;
    }
    std::string IdLabel() { return Labels<wxStaticText>(*Find<Annotator::PartInfoPane>(*window)).at(0); }

    void ChooseMenu(int menu) { ChooseMenuItem(*window->GetMenuBar()->GetMenu(static_cast<std::size_t>(menu)), 0); }
    void Save() { Fire(*FindLabelled<wxButton>(*window, "Save"), wxEVT_BUTTON); }
    void Click(wxPoint at) {
        for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
            wxMouseEvent event(type);
            event.SetPosition(at);
            canvas->ProcessWindowEvent(event);
        }
    }

    TemporaryFolder folder;
    WorkingDirectory inside;
    MadeAircraftList loader;
    DialogRecorder dialogs;
    Annotator::AnnotatorWindow* window = nullptr;
    wxTreeCtrl* tree = nullptr;
    Annotator::DXCanvas* canvas = nullptr;
    wxChoice* selector = nullptr;

private:
    std::string TextBelow(const wxTreeItemId& item, const std::string& indent) {
        std::string text = indent + tree->GetItemText(item).ToStdString(wxConvUTF8) + "\n";
        wxTreeItemIdValue cookie;
        for (wxTreeItemId child = tree->GetFirstChild(item, cookie); child.IsOk();
             child = tree->GetNextChild(item, cookie))
            text += TextBelow(child, indent + " ");
        return text;
    }
};

} // namespace Support
