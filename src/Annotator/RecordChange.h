#pragma once

#include "Annotator/RecordUpdate.h"
#include "CockpitModel/Touch/TouchTypes.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Annotator {

class AnnotationSession;

/// What to set in the records of many parts.
struct RecordChange {
    /// Empty to leave a value as it is; an empty value takes it back.
    template <typename Value>
    using Setting = std::optional<std::optional<Value>>;

    Setting<CockpitModel::TouchInteractionType> type = std::nullopt, expected = std::nullopt;
    Setting<CockpitModel::TouchEventType> event = std::nullopt;
    std::optional<bool> reverse = std::nullopt;
};

/// Takes back all values that a RecordChange can set; tooltips stay.
RecordChange TakeAllBack();

/// A value of a RecordChange, as the user chooses it.
struct ChangeField {
    const char* title;
    std::vector<std::string> lines; ///< the first leaves the value as it is
    std::function<void(RecordChange&, std::size_t line)> choose;
};

std::vector<ChangeField> ChangeFields();

/// The records that a change of these parts alters. A record that has no value left is removed. Nothing is stored.
std::vector<RecordUpdate> UpdatesOf(const AnnotationSession& session, const std::vector<CockpitModel::NodePart*>& parts,
                                    const RecordChange& change);
/// The same for expecting the type that is detected for each part.
std::vector<RecordUpdate> ExpectDetected(const AnnotationSession& session,
                                         const std::vector<CockpitModel::NodePart*>& parts);

/// Said before a change: how many of the chosen records it alters.
std::string ChangeCountText(std::size_t changed, std::size_t chosen);
std::string ChangeQuestion(const std::string& command, std::size_t changed, std::size_t chosen);
/// Said instead of the question if a command alters none of them.
std::string NothingChangesText(const std::string& command, std::size_t chosen);

} // namespace Annotator
