#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/XPlane/AttachedObjects.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// Number of nodes to which attached objects may fill a model.
inline constexpr std::size_t kMostFullNodes = 4096;

/// Adds attached objects to a model that has its cockpit object or an empty root. An object that cannot be read or does
/// not fit is left out, with a remark in the model; one with too many nodes ends the list.
void AddAttachedObjects(const std::string& aircraftFolder, const std::vector<AttachedObject>& objects,
                        ModelData& model);

} // namespace CockpitModel
