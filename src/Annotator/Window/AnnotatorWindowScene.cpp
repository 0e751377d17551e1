// The window's scene: loading an aircraft, the tree of its nodes and parts, the selection and Save.
#include "Annotator/AircraftLoading.h"
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AnnotatorWindow.h"
#include "Annotator/Window/ProblemBox.h"
#include "CockpitModel/Annotations/AnnotationXml.h"
#include "Logging/Logger.h"
#include "Utils/FatalError.h"
#include "Utils/Files.h"

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

/// A fatal error has a fixed text and an empty exception, so the reason is logged before it and thrown after it.
void RequireModel(const Sim::AircraftInfo& info, const CockpitModel::AircraftCockpit& cockpit) {
    if (cockpit.IsValid())
        return;
    const std::string reason = "No cockpit object found for " + info.acfPath;
    Logging::Logger::Get().Log(HERE, reason);
    try {
        Utils::FatalError("Annotator\\AnnotatorWindow.cpp", 158);
    } catch (const std::exception&) {
        throw std::runtime_error(reason + "\n" + kLogEndedText);
    }
}

CockpitModel::AnnotationRecord NewAnnotation(const NodePart& part) {
    CockpitModel::AnnotationRecord record;
    record.NodeId = part.node->index;
    record.PartId = part.id;
    return record;
}

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
    // Clears the old scene first, so that only one aircraft is in memory and a failed load leaves no partial scene.
    EmptyTree();
    SelectPart(nullptr);
    ReleaseScene();
    aircraftName = info.displayName;
    OpenedAircraft opened = OpenAircraft(info, gaugeRepository);
    RequireModel(info, *opened.cockpit);
    BuiltAircraft built = BuildAircraft(opened);
    cockpit = std::move(opened.cockpit);
    panels = std::move(opened.panels);
    model = std::move(built.model);
    sceneGraph = std::move(built.sceneGraph);
    sceneGraph->BuildPartTrees();
    annotationStore = std::make_unique<CockpitModel::AnnotationStore>(*sceneGraph);
    annotationPath = CockpitModel::AnnotationPath(info);
    annotationStore->Read(annotationPath);
    preview->SetScene(sceneGraph, model.get(), annotationStore.get());
    RebuildTree();
    canvas->control.camera.SetPosition(CameraPlace(*cockpit));
    canvas->SetFocus();
}

/// The items point into the scene, so they are deleted before it.
void AnnotatorWindow::EmptyTree() {
    partTree->DeleteAllItems();
    highlightedItem.reset();
    partItems.clear();
    nodeItems.clear();
}

void AnnotatorWindow::ReleaseScene() {
    // Pointers before their targets: the graph points to the panels, the store to the graph.
    preview->SetScene(nullptr, nullptr, nullptr);
    annotationStore.reset();
    sceneGraph.reset();
    model.reset();
    panels.reset();
    cockpit.reset();
}

void AnnotatorWindow::ShowEmptyState() {
    EmptyTree();
    SelectPart(nullptr);
    ReleaseScene();
    aircraftName.clear();
    annotationPath.clear();
}

void AnnotatorWindow::RebuildTree() {
    partTree->AddRoot(ToWide(aircraftName));
    nodeItems.reserve(sceneGraph->Nodes().size());
    const Utils::Matrix4 unused = Utils::Matrix4::Identity();
    sceneGraph->VisitNodes(
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
    if (part == selectedPart)
        return;
    selectedPart = part;
    preview->SetSelectedPart(part);
    textureViewPane->SetPart(part);
    partInfoPane->SetPart(part);
    if (part) {
        HighlightItem(ItemOf(*part));
        ShowAnnotation(*part);
    } else {
        testPane->SetPart(nullptr, nullptr);
        interactionPane->SetPart(nullptr, nullptr);
    }
    animationsPane->SetPart(part, model.get());
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

void AnnotatorWindow::ShowAnnotation(NodePart& part) {
    currentAnnotation = annotationStore->Get(part).value_or(NewAnnotation(part));
    testPane->SetPart(&part, &currentAnnotation);
    interactionPane->SetPart(&part, &currentAnnotation);
}

void AnnotatorWindow::OnSaveAnnotation(wxCommandEvent&) {
    if (selectedPart)
        RunGuarded(
            this, [this] { SaveAnnotation(); },
            [this](const std::exception& error) { return SaveFailureText(annotationPath, ReasonText(error)); });
}

void AnnotatorWindow::SaveAnnotation() {
    testPane->Commit();
    interactionPane->Commit();
    annotationStore->Set(*selectedPart, currentAnnotation);
    if (const auto result = annotationStore->Write(annotationPath); !result)
        ShowProblem(this, SaveFailureText(annotationPath, result.error));
    else if (const std::string& copy = annotationStore->BackupPath();
             !copy.empty() && !CockpitModel::IsXml(Utils::ReadFile(copy)))
        ShowProblem(this, KeptCopyText(annotationPath, copy));
}

} // namespace Annotator
