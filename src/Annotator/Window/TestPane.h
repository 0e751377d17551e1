#pragma once

#include "Annotator/Window/ItemDropDown.h"
#include "Annotator/Window/Page.h"
#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/NodePart.h"

namespace Annotator {

/// The page "Tests": which type detection should find for the part on show.
class TestPane : public Page {
public:
    TestPane(wxWindow* parent, wxWindowID id);

    /// Both are null, or both are set and stay valid until the next call.
    void SetPart(const CockpitModel::NodePart* part, CockpitModel::AnnotationRecord* newAnnotation);
    /// Copies the choice into the annotation; true when it expects a type now. Needs an annotation.
    bool Commit();

private:
    CockpitModel::AnnotationRecord* annotation = nullptr; ///< the window's working record
    ItemDropDown<CockpitModel::TouchInteractionType>* interactionTypeDropDown;
};

} // namespace Annotator
