#pragma once

#include "Utils/NonAssignable.h"

#include <functional>
#include <wx/choice.h>

namespace Annotator {

/// Detects that the user picks the current line of a choice again, for which GTK sends no wxEVT_CHOICE. Closing the
/// list in another way, by Escape or a click outside, is ignored. Must be owned by the choice.
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
