#include "Annotator/PartColumns.h"

#include "Annotator/PlainManipulator.h"
#include "CockpitModel/PartAddress.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "CockpitModel/XPlane/VrConfigParts.h"

#include <boost/algorithm/string/join.hpp>
#include <vector>

namespace Annotator {

namespace {

using CockpitModel::AnnotationRecord;
using CockpitModel::NodePart;

std::string AddressText(const PartState& state) {
    return ToText(CockpitModel::PartAddress{state.part->node->index, state.part->id});
}

std::int64_t AddressNumber(const PartState& state) {
    return (std::int64_t(state.part->node->index) << 32) + state.part->id;
}

std::string TypeText(const PartState& state) {
    return TouchInteractionTypeToText(state.part->InteractionType);
}

std::string OverrideText(const PartState& state) {
    const AnnotationRecord& record = state.record;
    std::vector<std::string> texts;
    if (record.InteractionType)
        texts.push_back(TouchInteractionTypeToText(*record.InteractionType));
    if (record.EventType)
        texts.push_back(TouchEventTypeToText(*record.EventType));
    if (record.Reverse)
        texts.push_back("reversed");
    if (record.Tooltip)
        texts.push_back("tooltip");
    return boost::algorithm::join(texts, ", ");
}

std::string ExpectedText(const PartState& state) {
    const auto& expected = state.record.InteractionTypeTest;
    return expected ? TouchInteractionTypeToText(*expected) : "";
}

std::string ResultText(const PartState& state) {
    if (!state.record.InteractionTypeTest)
        return {};
    return state.IsFailing() ? "failed" : "passed";
}

/// The keyword in the full reading, the kind in the plain one.
std::string ManipulatorName(const PartState& state) {
    if (state.part->manipulator)
        return state.part->manipulator->keyword;
    return state.part->Rect() ? PlainManipulatorOf(*state.part->Rect()).kind : "";
}

std::string NamesText(const PartState& state) {
    if (state.part->manipulator)
        return boost::algorithm::join(state.part->manipulator->names, " ");
    return state.part->Rect() ? PlainManipulatorOf(*state.part->Rect()).dataref : "";
}

/// Parts of panels come from no object.
std::string ObjectText(const PartState& state) {
    const auto& objects = state.part->node->graph->Model().objects;
    const CockpitModel::RiffBlockPART& block = state.part->block;
    return block.SourceLine > 0 && block.Object < objects.size() ? objects[block.Object].name : "";
}

std::int64_t ManipulatorLine(const PartState& state) {
    return state.part->block.ManipulatorLine;
}

std::int64_t DrawLine(const PartState& state) {
    return state.part->block.SourceLine;
}

std::int64_t VrBlockLine(const PartState& state) {
    return state.vrBlockLine;
}

template <std::int64_t (*line)(const PartState&)>
std::string LineText(const PartState& state) {
    return line(state) > 0 ? std::to_string(line(state)) : "";
}

constexpr PartColumn kColumns[] = {{"Part", 8, AddressText, AddressNumber},
                                   {"Type", 11, TypeText},
                                   {"Override", 20, OverrideText},
                                   {"Expected", 11, ExpectedText},
                                   {"Result", 8, ResultText},
                                   {"Manipulator", 18, ManipulatorName},
                                   {"Names", 40, NamesText},
                                   {"Object", 26, ObjectText},
                                   {"Line", 8, LineText<ManipulatorLine>, ManipulatorLine},
                                   {"Drawn in Line", 13, LineText<DrawLine>, DrawLine},
                                   {"VR", 6, LineText<VrBlockLine>, VrBlockLine}};

constexpr PartChoice kChoices[] = {{"All", &PartState::IsAny},
                                   {"Touchable", &PartState::IsTouchable},
                                   {"Failing", &PartState::IsFailing},
                                   {"Not recorded", &PartState::IsUnrecorded},
                                   {"Overridden", &PartState::IsOverridden},
                                   {"Wants a block", &PartState::WantsVrBlock}};

} // namespace

bool PartState::IsTouchable() const {
    return part->Rect() || IsYoke(part->InteractionType);
}

bool PartState::IsFailing() const {
    return record.InteractionTypeTest && *record.InteractionTypeTest != part->InteractionType;
}

bool PartState::IsUnrecorded() const {
    return IsTouchable() && !record.InteractionTypeTest;
}

bool PartState::IsOverridden() const {
    return record.InteractionType || record.EventType || record.Reverse || record.Tooltip;
}

bool PartState::WantsVrBlock() const {
    return vrBlockLine == 0 && part->manipulator &&
           WantsVrConfigBlock(*part->manipulator, record.InteractionType.value_or(part->InteractionType));
}

std::span<const PartColumn> PartColumns() {
    return kColumns;
}

std::span<const PartChoice> PartChoices() {
    return kChoices;
}

} // namespace Annotator
