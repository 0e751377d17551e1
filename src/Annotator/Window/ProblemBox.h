#pragma once

#include <functional>
#include <string>
#include <wx/window.h>

namespace Annotator {

/// Tells a person what went wrong, and waits until it is dismissed.
void ShowProblem(wxWindow* parent, const std::string& text);

/// Runs the work of an event handler, which must not throw into the toolkit: what the work throws is told to the person
/// in the words of `textOf`.
void RunGuarded(wxWindow* parent, const std::function<void()>& work, std::string (*textOf)(const std::exception&));

} // namespace Annotator
