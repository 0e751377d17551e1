#pragma once

#include <functional>
#include <string>
#include <wx/window.h>

namespace Annotator {

/// Shows an error to the user and waits until it is dismissed.
void ShowProblem(wxWindow* parent, const std::string& text);
/// Shows a text that is no error, in the same way.
void ShowNote(wxWindow* parent, const std::string& text);
/// Asks the user a question; "No" is the default.
bool Confirm(wxWindow* parent, const std::string& question);

/// Runs the work of an event handler, which must not throw into the toolkit. An exception is shown to the user with the
/// text that `textOf` returns.
void RunGuarded(wxWindow* parent, const std::function<void()>& work,
                const std::function<std::string(const std::exception&)>& textOf);

} // namespace Annotator
