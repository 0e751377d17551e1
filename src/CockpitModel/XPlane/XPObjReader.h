#pragma once

#include "CockpitModel/XPlane/XPObjData.h"

#include <istream>

namespace CockpitModel {

/// Reads the text of an X-Plane object (OBJ8) to its end into empty data. Lines that it has no use for are skipped. It
/// raises nothing for any bytes: what makes a model impossible stands in the data for the converter.
void ReadXPObj(std::istream& stream, XPObjData& data);

} // namespace CockpitModel
