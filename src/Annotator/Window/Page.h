#pragma once

#include <string>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

namespace Annotator {

/// A page of the notebook: a column of controls, which scrolls if the page is too small.
class Page : public wxScrolledWindow {
protected:
    Page(wxWindow* parent, wxWindowID id);

    void AddControl(wxWindow* control, int sizerFlags = 0);
    wxStaticText* AddText(const char* text);
    wxStaticText* AddHeading(const char* text); ///< bold
    /// Fits the scrolled area to the controls after a change of their texts.
    void ContentChanged();
};

/// Shows a text that may be wider than its page, and also sets it as the control's tooltip. Ampersands are shown and do
/// not mark access keys.
void ShowText(wxStaticText& control, std::string text);

} // namespace Annotator
