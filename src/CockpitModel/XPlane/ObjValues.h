#pragma once

#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/ObjLine.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <optional>
#include <string>
#include <string_view>

namespace CockpitModel {

/// The values of lines that the plain reading keeps. The keyword has been read.
XPObjAnimStep ReadTranslation(ObjLine& line);
XPObjAnimStep ReadRotation(ObjLine& line);
/// Of a keyword that sets the toggle or the drag.
XPObjManip ReadPlainManipulator(ObjLine& line, const ManipulatorKeyword& keyword);

/// The kinds of a manipulator's values, as in ObjKeyword.
std::string ValueKinds(const ManipulatorKeyword& keyword);

/// The first value of a line that is missing or not of its kind.
struct ObjFault {
    const char* place = nullptr; ///< in the line
    std::string_view found;      ///< empty if the value is missing
    char needed = 0;             ///< its kind
};

/// `line` with its keyword read; `kinds` as in ObjKeyword.
std::optional<ObjFault> FindFault(ObjLine line, std::string_view kinds);

} // namespace CockpitModel
