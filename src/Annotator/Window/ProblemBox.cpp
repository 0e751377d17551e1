#include "Annotator/Window/ProblemBox.h"

#include "Annotator/Window/WideText.h"

#include <wx/msgdlg.h>

namespace Annotator {

void ShowProblem(wxWindow* parent, const std::string& text) {
    wxMessageBox(ToWide(text), "Vorelle Aircraft Annotator", wxOK | wxICON_ERROR, parent);
}

} // namespace Annotator
