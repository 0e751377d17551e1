#pragma once

#include "Annotator/PaneTexts.h"
#include "Annotator/Window/ItemDropDown.h"
#include "Annotator/Window/Page.h"

#include <wx/slider.h>

namespace Annotator {

/// The page "Animations": the animations above the selected part, and a slider that moves all animations of the source
/// model that use the dataref of the chosen one.
class AnimationsPane : public Page {
public:
    AnimationsPane(wxWindow* parent, wxWindowID id);

    /// Part and model must be valid until the next call; without a part the model is not stored.
    void SetPart(CockpitModel::NodePart* newPart, CockpitModel::ModelData* newModel);

private:
    void OnAnimationChosen();
    void OnSliderMoved();

    CockpitModel::NodePart* part = nullptr;
    CockpitModel::ModelData* model = nullptr;
    wxStaticText* infoText;
    wxSlider* positionSlider;
    ItemDropDown<AnimData>* dropDown;
    CockpitModel::ModelAnimation* selectedAnimation = nullptr; ///< moved by the slider
};

} // namespace Annotator
