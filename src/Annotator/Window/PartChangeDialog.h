#pragma once

#include "Annotator/AnnotationSession.h"
#include "Annotator/RecordChange.h"

#include <vector>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

namespace Annotator {

/// Asks what to set in the records of many parts, and says how many records change. It stores nothing.
class PartChangeDialog : public wxDialog {
public:
    /// The session and the parts must outlive the dialog.
    PartChangeDialog(wxWindow* parent, const AnnotationSession& shownSession,
                     std::vector<CockpitModel::NodePart*> chosenParts);

    /// What the chosen lines change.
    const std::vector<RecordUpdate>& Updates() const { return updates; }

private:
    void MakeChoices(wxSizer& sizer);
    void OnChoice();

    const AnnotationSession& session;
    const std::vector<CockpitModel::NodePart*> parts;
    const std::vector<ChangeField> fields = ChangeFields();
    std::vector<wxChoice*> choices; ///< by field
    wxStaticText* countText;
    std::vector<RecordUpdate> updates;
};

} // namespace Annotator
