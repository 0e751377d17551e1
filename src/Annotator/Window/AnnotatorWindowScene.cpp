// What the window shows of its session: the tree of nodes and parts, the selection, and the results of loads and saves.
#include "Annotator/FailureTexts.h"
#include "Annotator/PaneTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/PartListWindow.h"
#include "Annotator/Window/ProblemBox.h"
#include "Utils/RangeCheck.h"

#include <stdexcept>

namespace Annotator {

namespace {

using CockpitModel::Node;
using CockpitModel::NodePart;

/// Only part items carry data.
class NodePartTreeItemData : public wxTreeItemData {
public:
    explicit NodePartTreeItemData(NodePart* itemPart) : part(itemPart) {}

    NodePart* part; ///< of the loaded scene
};

} // namespace

void AnnotatorWindow::LoadGuarded(const Sim::AircraftInfo& info) {
    try {
        LoadAircraft(info);
    } catch (const std::exception& error) {
        ShowEmptyState();
        // The load runs inside a frame, which must end before the box opens.
        CallAfter([this, text = LoadFailureText(info, error)] { ShowProblem(this, text); });
    }
}

void AnnotatorWindow::LoadAircraft(const Sim::AircraftInfo& info) {
    ShowEmptyState();
    session.Load(info, reading);
    session.Scene()->BuildPartTrees();
    preview->SetScene(session.Scene(), session.Model(), session.Annotations());
    if (session.Reading() == CockpitModel::Reading::Full)
        preview->SetSurroundings(session.Cockpit()->FindSurroundings());
    RebuildTree();
    ReadPartList();
    PlaceCamera();
    EnableViews();
    canvas->SetFocus();
}

void AnnotatorWindow::EmptyTree() {
    partTree->DeleteAllItems();
    highlightedItem.reset();
    partItems.clear();
    nodeItems.clear();
}

/// Tree, list, panes and preview have pointers into the scene, so they are emptied before it.
void AnnotatorWindow::ShowEmptyState() {
    EmptyTree();
    if (partListWindow)
        partListWindow->Clear();
    SelectPart(nullptr);
    preview->SetScene(nullptr, nullptr, nullptr);
    session.Clear();
    EnableViews();
}

void AnnotatorWindow::RebuildTree() {
    partTree->AddRoot(ToWide(TreeRootText(session)));
    nodeItems.reserve(session.Scene()->Nodes().size());
    const Utils::Matrix4 unused = Utils::Matrix4::Identity();
    session.Scene()->VisitNodes(
        unused, unused, [this](const auto&, const auto&, const auto&, const auto&, Node& node) { AddNodeItems(node); });
    partTree->ExpandAll();
}

void AnnotatorWindow::AddNodeItems(Node& node) {
    const auto index = static_cast<std::size_t>(node.index);
    const wxTreeItemId parentItem = node.parent ? Utils::At(nodeItems, node.parent->index) : partTree->GetRootItem();
    if (nodeItems.size() <= index)
        nodeItems.resize(index + 1);
    nodeItems[index] = partTree->AppendItem(parentItem, "N: " + std::to_string(node.index));
    for (std::size_t i = 0; i < node.parts.size(); ++i) {
        NodePart* part = node.parts[i].get();
        partItems[part] =
            partTree->AppendItem(nodeItems[index], "P: " + std::to_string(i), -1, -1, new NodePartTreeItemData(part));
    }
}

void AnnotatorWindow::OnTreeSelectionChanged(wxTreeEvent& event) {
    if (const auto* data = dynamic_cast<NodePartTreeItemData*>(partTree->GetItemData(event.GetItem())))
        SelectGuarded(data->part);
}

void AnnotatorWindow::SelectGuarded(NodePart* part) {
    try {
        SelectPart(part);
    } catch (const std::exception& error) {
        // A partially shown part must not be saved.
        SelectPart(nullptr);
        ShowProblem(this, SelectionFailureText(error));
    }
}

void AnnotatorWindow::SelectPart(NodePart* part) {
    // Selecting the part's item below calls this function again, through the tree's selection event.
    if (part == session.SelectedPart())
        return;
    session.Select(part);
    preview->SetSelectedPart(part);
    textureViewPane->SetPart(part);
    partInfoPane->SetPart(part);
    if (part)
        HighlightItem(ItemOf(*part));
    ShowRecord();
    animationsPane->SetPart(part, session.Model());
    EnableViews();
    if (partListWindow)
        partListWindow->ShowPart(part);
}

/// Shows the working record on the pages that edit it.
void AnnotatorWindow::ShowRecord() {
    NodePart* const part = session.SelectedPart();
    CockpitModel::AnnotationRecord* const annotation = part ? &session.Edit() : nullptr;
    testPane->SetPart(part, annotation);
    interactionPane->SetPart(part, annotation);
}

/// Copies what those pages show into the working record.
void AnnotatorWindow::CommitPages() {
    if (!session.SelectedPart())
        return;
    testPane->Commit();
    interactionPane->Commit();
}

const wxTreeItemId& AnnotatorWindow::ItemOf(const NodePart& part) const {
    const auto found = partItems.find(&part);
    if (found == partItems.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    return found->second;
}

void AnnotatorWindow::HighlightItem(const wxTreeItemId& item) {
    // The toolkit forbids changing the selection during the tree's own selection event.
    if (partTree->GetSelection() != item)
        partTree->SelectItem(item, true);
    if (partTree->GetFocusedItem() != item)
        partTree->SetFocusedItem(item);
    if (highlightedItem) {
        partTree->SetItemBold(*highlightedItem, false);
        partTree->SetItemTextColour(*highlightedItem, *wxBLACK);
    }
    partTree->SetItemBold(item, true);
    partTree->SetItemTextColour(item, *wxBLUE);
    highlightedItem = item;
}

void AnnotatorWindow::OnSaveAnnotation(wxCommandEvent&) {
    if (session.SelectedPart())
        RunGuarded(
            this, [this] { SaveAnnotation(); },
            [this](const std::exception& error) {
                return SaveFailureText(session.AnnotationPath(), ReasonText(error));
            });
}

void AnnotatorWindow::SaveAnnotation() {
    CommitPages();
    ShowSaveResult(session.Save());
}

void AnnotatorWindow::ShowSaveResult(const AnnotationSaveResult& result) {
    partTree->SetItemText(partTree->GetRootItem(), ToWide(TreeRootText(session)));
    ReadPartList();
    if (!result.saved)
        ShowProblem(this, SaveFailureText(session.AnnotationPath(), result.error));
    else if (!result.unreadableCopy.empty())
        ShowProblem(this, KeptCopyText(session.AnnotationPath(), result.unreadableCopy));
}

} // namespace Annotator
