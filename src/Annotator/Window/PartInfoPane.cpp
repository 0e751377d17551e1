#include "Annotator/Window/PartInfoPane.h"

#include "Annotator/PaneTexts.h"

namespace Annotator {

namespace {

constexpr const char* kNoId = "ID: None";
constexpr const char* kNoOffset = "Offset:";
constexpr const char* kNoMaterial = "Material:";
constexpr const char* kNoType = "Detected Interaction Type:";

} // namespace

PartInfoPane::PartInfoPane(wxWindow* parent, wxWindowID id) : Page(parent, id) {
    idLabel = AddHeading(kNoId);
    offsetLabel = AddText(kNoOffset);
    materialLabel = AddText(kNoMaterial);
    detectedLabel = AddText(kNoType);
    AddHeading("Info:");
    infoText = AddText("");
    AddHeading("Base Data:");
    baseDataText = AddText("");
    ContentChanged();
}

void PartInfoPane::SetPart(const CockpitModel::NodePart* part) {
    ShowText(*idLabel, part ? PartIdText(*part) : kNoId);
    ShowText(*offsetLabel, part ? FileOffsetText(*part) : kNoOffset);
    ShowText(*materialLabel, part ? MaterialText(*part) : kNoMaterial);
    ShowText(*detectedLabel,
             part ? "Detected Interaction Type: " + TouchInteractionTypeToText(part->InteractionType) : kNoType);
    ShowText(*infoText, part ? PartInfoText(*part) : std::string());
    ShowText(*baseDataText, part && part->Rect() ? part->Rect()->Text : std::string());
    ShowManipulator(part ? ManipulatorText(*part) : "");
    ContentChanged();
}

/// Only the full reading has one to show; until then the page has no controls for it.
void PartInfoPane::ShowManipulator(const std::string& text) {
    if (!manipulatorText && text.empty())
        return;
    if (!manipulatorText) {
        manipulatorHeading = AddHeading("Manipulator:");
        manipulatorText = AddText("");
    }
    ShowText(*manipulatorText, text);
    manipulatorHeading->Show(!text.empty());
    manipulatorText->Show(!text.empty());
}

} // namespace Annotator
