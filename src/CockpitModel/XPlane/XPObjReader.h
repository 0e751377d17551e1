#pragma once

#include "CockpitModel/Reading.h"
#include "CockpitModel/XPlane/XPObjData.h"

#include <istream>

namespace CockpitModel {

/// Reads the text of an X-Plane object (OBJ8) to its end into empty data. Unused lines are skipped. Does not throw for
/// any input: faults that prevent a model are stored in the data for the converter.
void ReadXPObj(std::istream& stream, XPObjData& data);
/// The full reading also keeps the whole manipulators and the key frames.
void ReadXPObj(std::istream& stream, XPObjData& data, Reading reading);

} // namespace CockpitModel
