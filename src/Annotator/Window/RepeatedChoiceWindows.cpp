#include "Annotator/Window/RepeatedChoice.h"

namespace Annotator {

// On Windows the toolkit sends wxEVT_CHOICE for every line picked from the list.
RepeatedChoice::RepeatedChoice(wxChoice& watched, std::function<void()> listener)
    : choice(watched), onRepeated(std::move(listener)) {}

RepeatedChoice::~RepeatedChoice() = default;

} // namespace Annotator
