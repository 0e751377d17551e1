#include "Annotator/Window/ProblemBox.h"

#include "Annotator/Window/WxText.h"

#include <wx/msgdlg.h>

namespace Annotator {

void ShowProblem(wxWindow* parent, const std::string& text) {
    wxMessageBox(ToWide(text), "Vorelle Aircraft Annotator", wxOK | wxICON_ERROR, parent);
}

void RunGuarded(wxWindow* parent, const std::function<void()>& work,
                const std::function<std::string(const std::exception&)>& textOf) {
    try {
        work();
    } catch (const std::exception& error) {
        ShowProblem(parent, textOf(error));
    }
}

} // namespace Annotator
