#pragma once

#include "CockpitModel/ModelData.h"
#include "CockpitModel/Reading.h"
#include "CockpitModel/SurroundingObjects.h"
#include "Utils/LinearAlgebra.h"

#include <memory>
#include <string>
#include <vector>

namespace CockpitModel {

/// One aircraft's cockpit before loading: the paths of its files, the pilot's position, and the loader of its model.
struct AircraftCockpit {
    virtual ~AircraftCockpit() = default;
    /// Whether the cockpit has a model to load.
    virtual bool IsValid() const = 0;
    /// Reads the files on each call.
    virtual std::unique_ptr<ModelData> LoadModel() const = 0;
    /// The objects around the controls; none in the plain reading. Reads the aircraft's file on each call.
    virtual SurroundingObjects FindSurroundings() const { return {}; }

    Utils::Vector3 modelOffset = Utils::Vector3::Zero(); ///< metres
    Utils::Vector3 pilotEye = Utils::Vector3::Zero();    ///< metres, in the model's axes
    std::string panelConfigPath;                         ///< empty for X-Plane aircraft
    std::string furtherPath;                             ///< nothing reads it
    Reading reading = Reading::Plain;
    std::vector<std::string> lookedAt; ///< full reading: the files in which something to touch was sought
    std::string textureFolder;         ///< base of relative texture names; empty if they are full paths
};

} // namespace CockpitModel
