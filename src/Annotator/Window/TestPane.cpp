#include "Annotator/Window/TestPane.h"

#include "Annotator/Window/AccessibleName.h"

namespace Annotator {

using CockpitModel::TouchInteractionType;

TestPane::TestPane(wxWindow* parent, wxWindowID id) : Page(parent, id) {
    AddHeading("Interaction Type:");
    interactionTypeDropDown =
        new ItemDropDown<TouchInteractionType>(this, wxID_ANY, "No Test...", CockpitModel::TouchInteractionTypeToText);
    interactionTypeDropDown->SetItems(CockpitModel::SelectableInteractionTypes());
    AddControl(interactionTypeDropDown);
    SetAccessibleName(*interactionTypeDropDown, "Expected interaction type");
    ContentChanged();
}

void TestPane::SetPart(const CockpitModel::NodePart*, CockpitModel::AnnotationRecord* newAnnotation) {
    annotation = newAnnotation;
    interactionTypeDropDown->SelectItem(annotation ? annotation->InteractionTypeTest : std::nullopt);
}

bool TestPane::Commit() {
    annotation->InteractionTypeTest = interactionTypeDropDown->GetChosen();
    return annotation->InteractionTypeTest.has_value();
}

} // namespace Annotator
