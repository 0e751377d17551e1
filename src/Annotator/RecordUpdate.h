#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"

#include <optional>

namespace CockpitModel {
struct NodePart;
}

namespace Annotator {

/// The stored record of a part before and after a change; empty for none.
struct RecordUpdate {
    CockpitModel::NodePart* part = nullptr; ///< of the loaded scene
    std::optional<CockpitModel::AnnotationRecord> before, after;
};

/// A record that sets no value of its part.
CockpitModel::AnnotationRecord EmptyRecord(const CockpitModel::NodePart& part);
/// The record, or an empty one of the part.
CockpitModel::AnnotationRecord RecordOr(const std::optional<CockpitModel::AnnotationRecord>& record,
                                        const CockpitModel::NodePart& part);

/// Sets the values that differ between `before` and `after` to those of `after`.
void TakeOver(CockpitModel::AnnotationRecord& record, const CockpitModel::AnnotationRecord& before,
              const CockpitModel::AnnotationRecord& after);
/// The same, except for values of the record that are no longer those of `before`.
void TakeOverUnchanged(CockpitModel::AnnotationRecord& record, const CockpitModel::AnnotationRecord& before,
                       const CockpitModel::AnnotationRecord& after);

} // namespace Annotator
