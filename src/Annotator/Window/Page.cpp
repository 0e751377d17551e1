#include "Annotator/Window/Page.h"

#include "Annotator/Window/WxText.h"

#include <algorithm>
#include <wx/sizer.h>

namespace Annotator {

namespace {

/// On a hidden page GTK measures a text in the font that its control was created with.
void MeasureBold(wxStaticText& control) {
    control.SetMinSize(control.GetTextExtent(control.GetLabelText()));
}

} // namespace

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
    MeasureBold(*control);
    AddControl(control);
    return control;
}

void Page::ContentChanged() {
    FitInside();
    Layout();
    Refresh();
}

void ShowText(wxStaticText& control, std::string text) {
    std::ranges::replace(text, '\0', ' ');
    const wxString wide = ToWide(text);
    control.SetLabelText(wide);
    control.SetToolTip(wide);
    if (control.GetFont().GetWeight() >= wxFONTWEIGHT_BOLD)
        MeasureBold(control);
}

} // namespace Annotator
