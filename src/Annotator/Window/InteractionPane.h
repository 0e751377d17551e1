#pragma once

#include "Annotator/Window/ItemDropDown.h"
#include "Annotator/Window/Page.h"
#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/NodePart.h"

#include <wx/checkbox.h>
#include <wx/textctrl.h>

namespace Annotator {

/// The page "VR Interaction": the detected types of the selected part and the user's overrides.
class InteractionPane : public Page {
public:
    InteractionPane(wxWindow* parent, wxWindowID id);

    /// Both are null, or both are set and must be valid until the next call.
    void SetPart(CockpitModel::NodePart* newPart, CockpitModel::AnnotationRecord* newAnnotation);
    /// Copies the controls into the annotation; always true. Needs an annotation.
    bool Commit();

private:
    void ShowNothing();
    void ShowPart();

    CockpitModel::NodePart* part = nullptr;
    CockpitModel::AnnotationRecord* annotation = nullptr; ///< the session's working record
    wxStaticText* detectedInteractionLabel;
    ItemDropDown<CockpitModel::TouchInteractionType>* interactionDropDown;
    wxStaticText* detectedEventLabel;
    ItemDropDown<CockpitModel::TouchEventType>* eventDropDown;
    wxCheckBox* reverseCheckBox;
    wxStaticText* detectedTooltipLabel;
    wxTextCtrl* tooltipText;
};

} // namespace Annotator
