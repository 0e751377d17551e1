#pragma once

#include "Utils/LinearAlgebra.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// An object inside the aircraft that is drawn around the controls. Nothing in it can be touched.
struct SurroundingObject {
    std::string name; ///< in messages
    std::string path;
    Utils::Vector3 place = Utils::Vector3::Zero(); ///< of its origin: metres, in the model's axes
    bool mayBeHidden = false;                      ///< by a dataref of the simulator
};

/// The surroundings of one cockpit, before any of their files is read.
struct SurroundingObjects {
    std::vector<SurroundingObject> objects; ///< in the order in which they are drawn
    std::vector<std::string> remarks;       ///< one for each object that is left out, for the log
    std::string aircraftFolder;             ///< base of the panel's texture
};

} // namespace CockpitModel
