#include "Annotator/Window/ProblemBox.h"

#include "Annotator/Window/WxText.h"

#include <wx/msgdlg.h>

namespace Annotator {

namespace {

constexpr const char* kTitle = "Vorelle Aircraft Annotator";

} // namespace

void ShowProblem(wxWindow* parent, const std::string& text) {
    wxMessageBox(ToWide(text), kTitle, wxOK | wxICON_ERROR, parent);
}

void ShowNote(wxWindow* parent, const std::string& text) {
    wxMessageBox(ToWide(text), kTitle, wxOK | wxICON_INFORMATION, parent);
}

bool Confirm(wxWindow* parent, const std::string& question) {
    return wxMessageBox(ToWide(question), kTitle, wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION, parent) == wxYES;
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
