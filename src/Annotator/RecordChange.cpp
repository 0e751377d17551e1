#include "Annotator/RecordChange.h"

#include "Annotator/AnnotationSession.h"

namespace Annotator {

namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;

constexpr const char* kNoChange = "(No Change)";

template <typename Value>
void Set(std::optional<Value>& value, const RecordChange::Setting<Value>& setting) {
    if (setting)
        value = *setting;
}

void Apply(AnnotationRecord& record, const RecordChange& change) {
    Set(record.InteractionType, change.type);
    Set(record.InteractionTypeTest, change.expected);
    Set(record.EventType, change.event);
    record.Reverse = change.reverse.value_or(record.Reverse);
}

template <typename ChangeOf>
std::vector<RecordUpdate> Updates(const AnnotationSession& session, const std::vector<NodePart*>& parts,
                                  ChangeOf changeOf) {
    std::vector<RecordUpdate> updates;
    for (NodePart* const part : parts) {
        const auto before = session.Annotations()->Get(*part);
        AnnotationRecord after = RecordOr(before, *part);
        Apply(after, changeOf(*part));
        if (after == RecordOr(before, *part))
            continue;
        updates.push_back({part, before, after});
        if (after == EmptyRecord(*part))
            updates.back().after.reset();
    }
    return updates;
}

/// Lines for a value that can be taken back, which the line `none` does.
template <typename Value>
ChangeField FieldOf(const char* title, const char* none, const std::vector<Value>& values, std::string (*textOf)(Value),
                    RecordChange::Setting<Value> RecordChange::*setting) {
    ChangeField field{.title = title, .lines = {kNoChange, none}, .choose = {}};
    for (const Value value : values)
        field.lines.push_back(textOf(value));
    field.choose = [values, setting](RecordChange& change, std::size_t line) {
        change.*setting = std::nullopt;
        if (line == 1)
            change.*setting = std::optional<Value>();
        else if (line > 1)
            change.*setting = std::optional(values.at(line - 2));
    };
    return field;
}

ChangeField ReverseField() {
    return {.title = "Reverse Direction:", .lines = {kNoChange, "No", "Yes"}, .choose = [](auto& change, auto line) {
                change.reverse = line > 0 ? std::optional(line == 2) : std::nullopt;
            }};
}

} // namespace

RecordChange TakeAllBack() {
    RecordChange change;
    for (const ChangeField& field : ChangeFields())
        field.choose(change, 1);
    return change;
}

std::vector<ChangeField> ChangeFields() {
    const auto types = CockpitModel::SelectableInteractionTypes();
    return {FieldOf("Interaction Type:", "(Use Detected)", types, CockpitModel::TouchInteractionTypeToText,
                    &RecordChange::type),
            FieldOf("Event Type:", "(Use Default)", CockpitModel::SelectableEventTypes(),
                    CockpitModel::TouchEventTypeToText, &RecordChange::event),
            ReverseField(),
            FieldOf("Expected Type:", "No Test...", types, CockpitModel::TouchInteractionTypeToText,
                    &RecordChange::expected)};
}

std::vector<RecordUpdate> UpdatesOf(const AnnotationSession& session, const std::vector<NodePart*>& parts,
                                    const RecordChange& change) {
    return Updates(session, parts, [&](const NodePart&) { return change; });
}

std::vector<RecordUpdate> ExpectDetected(const AnnotationSession& session, const std::vector<NodePart*>& parts) {
    return Updates(session, parts,
                   [](const NodePart& part) { return RecordChange{.expected = std::optional(part.InteractionType)}; });
}

std::string ChangeCountText(std::size_t changed, std::size_t chosen) {
    return "Records that change: " + std::to_string(changed) + " of " + std::to_string(chosen);
}

std::string ChangeQuestion(const std::string& command, std::size_t changed, std::size_t chosen) {
    return command + "\n\n" + ChangeCountText(changed, chosen) + ". Save them?";
}

std::string NothingChangesText(const std::string& command, std::size_t chosen) {
    return command + "\n\nNothing to save: " +
           (chosen == 1 ? "the record" : "each of the " + std::to_string(chosen) + " records") +
           " has these values already.";
}

} // namespace Annotator
