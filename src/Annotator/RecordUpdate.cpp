#include "Annotator/RecordUpdate.h"

#include "CockpitModel/Node.h"
#include "CockpitModel/NodePart.h"

namespace Annotator {

namespace {

using CockpitModel::AnnotationRecord;

template <typename Visit>
void ForEachValue(Visit visit) {
    visit(&AnnotationRecord::InteractionType);
    visit(&AnnotationRecord::InteractionTypeTest);
    visit(&AnnotationRecord::EventType);
    visit(&AnnotationRecord::Reverse);
    visit(&AnnotationRecord::Tooltip);
}

} // namespace

AnnotationRecord EmptyRecord(const CockpitModel::NodePart& part) {
    return {.NodeId = part.node->index, .PartId = part.id};
}

AnnotationRecord RecordOr(const std::optional<AnnotationRecord>& record, const CockpitModel::NodePart& part) {
    return record ? *record : EmptyRecord(part);
}

void TakeOver(AnnotationRecord& record, const AnnotationRecord& before, const AnnotationRecord& after) {
    ForEachValue([&](auto value) {
        if (before.*value != after.*value)
            record.*value = after.*value;
    });
}

void TakeOverUnchanged(AnnotationRecord& record, const AnnotationRecord& before, const AnnotationRecord& after) {
    ForEachValue([&](auto value) {
        if (record.*value == before.*value)
            record.*value = after.*value;
    });
}

} // namespace Annotator
