#pragma once

#include "CockpitModel/SurroundingObjects.h"
#include "CockpitModel/XPlane/AttachedObjects.h"

#include <boost/filesystem/path.hpp>
#include <string_view>

namespace CockpitModel {

/// The attached objects inside the aircraft other than the cockpit object and those that are read for their controls,
/// each file at each place once. One with a rotation or on a part of the aircraft is left out, with a remark. One
/// without a readable file is left out too; its remark is among those of the controls.
SurroundingObjects FindSurroundings(const boost::filesystem::path& acf, std::string_view acfText,
                                    const boost::filesystem::path& cockpitObject, const AttachedObjects& controls);

} // namespace CockpitModel
