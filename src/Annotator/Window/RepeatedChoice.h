#pragma once

#include "Utils/NonAssignable.h"

#include <functional>
#include <wx/choice.h>

namespace Annotator {

/// Tells when the user picks the line that a choice shows already, which the toolkit's wxEVT_CHOICE leaves out on GTK.
/// A list that is closed in another way, by Escape or a click beside it, tells nothing. To be owned by the choice.
class RepeatedChoice : public Utils::NonAssignable {
public:
    RepeatedChoice(wxChoice& watched, std::function<void()> listener);
    ~RepeatedChoice();

    /// The list has opened; the choice shows `choice.GetSelection()`.
    void OnListShown() { shownLine = choice.GetSelection(); }
    void OnLinePicked(int line);

private:
    wxChoice& choice;
    const std::function<void()> onRepeated;
    int shownLine = wxNOT_FOUND; ///< when the list opened
};

} // namespace Annotator
