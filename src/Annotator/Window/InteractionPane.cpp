#include "Annotator/Window/InteractionPane.h"

#include "Annotator/PaneTexts.h"
#include "Annotator/Window/AccessibleName.h"

namespace Annotator {

using namespace CockpitModel;

namespace {

constexpr const char* kDetected = "Detected:";
constexpr int kTooltipWidth = 240;
constexpr int kTextMargin = 12; ///< above and below a line of text in its frame

} // namespace

InteractionPane::InteractionPane(wxWindow* parent, wxWindowID id) : Page(parent, id) {
    AddHeading("Interaction Type:");
    detectedInteractionLabel = AddText(kDetected);
    interactionDropDown =
        new ItemDropDown<TouchInteractionType>(this, wxID_ANY, "(Use Detected)", TouchInteractionTypeToText);
    interactionDropDown->SetItems(SelectableInteractionTypes());
    AddControl(interactionDropDown);

    AddHeading("Event Type:");
    detectedEventLabel = AddText(kDetected);
    eventDropDown = new ItemDropDown<TouchEventType>(this, wxID_ANY, "(Use Default)", TouchEventTypeToText);
    eventDropDown->SetItems(SelectableEventTypes());
    AddControl(eventDropDown);
    reverseCheckBox = new wxCheckBox(this, wxID_ANY, "Reverse Direction");
    AddControl(reverseCheckBox);

    AddHeading("Tooltip:");
    detectedTooltipLabel = AddText(kDetected);
    tooltipText = new wxTextCtrl(this, wxID_ANY);
    tooltipText->SetMinSize({FromDIP(kTooltipWidth), tooltipText->GetCharHeight() + FromDIP(kTextMargin)});
    AddControl(tooltipText);

    SetAccessibleName(*interactionDropDown, "Interaction type");
    SetAccessibleName(*eventDropDown, "Event type");
    SetAccessibleName(*tooltipText, "Tooltip");
    ContentChanged();
}

void InteractionPane::SetPart(NodePart* newPart, AnnotationRecord* newAnnotation) {
    part = newPart;
    annotation = newAnnotation;
    if (annotation)
        ShowPart();
    else
        ShowNothing();
    ContentChanged();
}

void InteractionPane::ShowNothing() {
    for (wxStaticText* label : {detectedInteractionLabel, detectedEventLabel, detectedTooltipLabel})
        ShowText(*label, kDetected);
    interactionDropDown->SetSelection(0);
    eventDropDown->SetSelection(0);
    reverseCheckBox->SetValue(false);
    tooltipText->Clear();
}

void InteractionPane::ShowPart() {
    ShowText(*detectedInteractionLabel, "Detected: " + TouchInteractionTypeToText(part->InteractionType));
    interactionDropDown->SelectItem(annotation->InteractionType);
    ShowText(*detectedEventLabel, "Detected: " + TouchEventTypeToText(part->EventType));
    eventDropDown->SelectItem(annotation->EventType);
    reverseCheckBox->SetValue(annotation->Reverse);
    ShowText(*detectedTooltipLabel, DetectedTooltipText(*part));
    tooltipText->SetValue(ToWide(annotation->Tooltip.value_or("")));
}

bool InteractionPane::Commit() {
    annotation->InteractionType = interactionDropDown->GetChosen();
    annotation->EventType = eventDropDown->GetChosen();
    annotation->Reverse = reverseCheckBox->GetValue();
    const std::string tooltip = ToNarrow(tooltipText->GetValue());
    annotation->Tooltip = tooltip.empty() ? std::nullopt : std::optional(tooltip);
    return true;
}

} // namespace Annotator
