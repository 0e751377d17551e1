#include "Annotator/Window/Page.h"

#include "Annotator/Window/WideText.h"

#include <wx/sizer.h>

namespace Annotator {

Page::Page(wxWindow* parent, wxWindowID id)
    : wxScrolledWindow(parent, id, wxDefaultPosition, wxDefaultSize,
                       wxTAB_TRAVERSAL | wxNO_BORDER | wxHSCROLL | wxVSCROLL) {
    SetSizer(new wxBoxSizer(wxVERTICAL));
    SetScrollRate(FromDIP(10), FromDIP(10));
}

void Page::AddControl(wxWindow* control, int sizerFlags) {
    GetSizer()->Add(control, 0, sizerFlags);
}

wxStaticText* Page::AddText(const char* text) {
    auto* control = new wxStaticText(this, wxID_ANY, text);
    AddControl(control);
    return control;
}

wxStaticText* Page::AddHeading(const char* text) {
    auto* control = new wxStaticText(this, wxID_ANY, text);
    control->SetFont(GetFont().Bold());
    AddControl(control);
    return control;
}

void Page::ContentChanged() {
    FitInside();
    Layout();
    Refresh();
}

void ShowText(wxStaticText& control, const std::string& text) {
    const wxString wide = ToWide(text);
    control.SetLabelText(wide);
    control.SetToolTip(wide);
}

} // namespace Annotator
