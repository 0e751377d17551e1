#pragma once

#include "CockpitModel/XPlane/XPObjData.h"

#include <istream>

namespace CockpitModel {

/// Reads the text of an X-Plane object (OBJ8) to its end into empty data. Lines that it has no use for are skipped in
/// silence; it reports nothing and raises nothing for any bytes.
void ReadXPObj(std::istream& stream, XPObjData& data);

} // namespace CockpitModel
