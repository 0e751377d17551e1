#pragma once

#include "Annotator/Window/ItemDropDown.h"
#include "Annotator/Window/Page.h"
#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/NodePart.h"

namespace Annotator {

/// The page "Tests": the type that detection should find for the selected part.
class TestPane : public Page {
public:
    TestPane(wxWindow* parent, wxWindowID id);

    /// Both are null, or both are set and must be valid until the next call.
    void SetPart(const CockpitModel::NodePart* part, CockpitModel::AnnotationRecord* newAnnotation);
    /// Copies the choice into the annotation; true if it now expects a type. Needs an annotation.
    bool Commit();

private:
    CockpitModel::AnnotationRecord* annotation = nullptr; ///< the session's working record
    ItemDropDown<CockpitModel::TouchInteractionType>* interactionTypeDropDown;
};

} // namespace Annotator
