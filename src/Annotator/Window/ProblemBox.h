#pragma once

#include <functional>
#include <string>
#include <wx/window.h>

namespace Annotator {

/// Tells the user what went wrong, and waits until it is dismissed.
void ShowProblem(wxWindow* parent, const std::string& text);

/// Runs the work of an event handler, which must not throw into the toolkit: what the work throws is told to the user
/// in the words of `textOf`.
void RunGuarded(wxWindow* parent, const std::function<void()>& work,
                const std::function<std::string(const std::exception&)>& textOf);

} // namespace Annotator
