#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"
#include "CockpitModel/NodePart.h"

#include <cstdint>
#include <span>
#include <string>

namespace Annotator {

/// A part with its annotation.
struct PartState {
    CockpitModel::NodePart* part = nullptr; ///< of the loaded scene
    CockpitModel::AnnotationRecord record;  ///< as stored; without values if there is none
    std::uint32_t vrBlockLine = 0;          ///< of the part's block in the VR configuration; 0 if it has none

    bool IsAny() const { return true; }
    bool IsTouchable() const;  ///< it has a manipulator or belongs to a yoke
    bool IsFailing() const;    ///< the detected type is not the expected one
    bool IsUnrecorded() const; ///< can be touched, but has no expected type
    bool IsOverridden() const; ///< a value of its annotation replaces a detected one
    bool WantsVrBlock() const; ///< a control of the full reading that would work better in VR with a block
};

using PartTest = bool (PartState::*)() const;

/// A column of the list of parts.
struct PartColumn {
    const char* title;
    int width; ///< in characters
    std::string (*text)(const PartState&);
    /// The value to sort by, for a column that is not sorted by its text.
    std::int64_t (*number)(const PartState&) = nullptr;
};

/// A choice of the parts to list.
struct PartChoice {
    const char* title;
    PartTest test;
};

std::span<const PartColumn> PartColumns();
std::span<const PartChoice> PartChoices();

} // namespace Annotator
