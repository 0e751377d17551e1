#include "Annotator/Window/AnimationsPane.h"

#include "Annotator/AnimationPosition.h"
#include "Annotator/FailureTexts.h"
#include "Annotator/Window/AccessibleName.h"
#include "Annotator/Window/ProblemBox.h"

namespace Annotator {

AnimationsPane::AnimationsPane(wxWindow* parent, wxWindowID id) : Page(parent, id) {
    AddHeading("Animation:");
    dropDown =
        new ItemDropDown<AnimData>(this, wxID_ANY, "No Animations...", [](const AnimData& row) { return row.label; });
    AddControl(dropDown);
    positionSlider = new wxSlider(this, wxID_ANY, 50, 0, 100, wxDefaultPosition, wxDefaultSize, wxSL_HORIZONTAL);
    AddControl(positionSlider, wxEXPAND);
    infoText = AddText("");
    SetAccessibleName(*dropDown, "Animation");
    SetAccessibleName(*positionSlider, "Position of the animation in percent");

    dropDown->selectionSignal.connect([this](const boost::optional<AnimData>&) {
        RunGuarded(
            this, [this] { OnAnimationChosen(); }, AnimationFailureText);
    });
    positionSlider->Bind(wxEVT_SLIDER, [this](wxCommandEvent&) {
        RunGuarded(
            this, [this] { OnSliderMoved(); }, AnimationFailureText);
    });
    ContentChanged();
}

void AnimationsPane::SetPart(CockpitModel::NodePart* newPart, CockpitModel::ModelData* newModel) {
    model = newPart ? newModel : nullptr;
    dropDown->SetItems(newPart ? AnimationRows(*newPart, *newModel) : std::vector<AnimData>());
    ShowText(*infoText, "");
    selectedAnimation = nullptr;
    part = newPart;
    ContentChanged();
}

void AnimationsPane::OnAnimationChosen() {
    const boost::optional<AnimData> row = dropDown->GetSelectedItem();
    if (row && row->animation) {
        positionSlider->SetValue(SliderPercent(*row->animation));
        selectedAnimation = row->animation;
    }
    ShowText(*infoText, row ? AnimationRowText(*row) : std::string());
    ContentChanged();
}

void AnimationsPane::OnSliderMoved() {
    if (selectedAnimation && model && part)
        MoveAnimations(*model, selectedAnimation->name, static_cast<float>(positionSlider->GetValue()) / 100.0f);
}

} // namespace Annotator
