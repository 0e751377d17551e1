#pragma once

#include <string>
#include <wx/scrolwin.h>
#include <wx/stattext.h>

namespace Annotator {

/// A page of the notebook: a column of controls, which scrolls when the page is smaller than they are.
class Page : public wxScrolledWindow {
protected:
    Page(wxWindow* parent, wxWindowID id);

    void AddControl(wxWindow* control, int sizerFlags = 0);
    wxStaticText* AddText(const char* text);
    wxStaticText* AddHeading(const char* text); ///< bold
    /// Fits the scrolled area to the controls after their texts have changed.
    void ContentChanged();
};

/// Shows a text that may be longer than its page is wide: whole in the control's tooltip as well. An ampersand of the
/// text is shown, not taken for the mark of an access key.
void ShowText(wxStaticText& control, std::string text);

} // namespace Annotator
