#pragma once

#include "CockpitModel/ModelData.h"
#include "Utils/LinearAlgebra.h"

#include <memory>
#include <string>

namespace CockpitModel {

/// One aircraft's cockpit before it is loaded: where its files are, where the pilot sits, and how to get its model.
struct AircraftCockpit {
    virtual ~AircraftCockpit() = default;
    /// True when the cockpit can produce a model.
    virtual bool IsValid() const = 0;
    /// Reads the files anew on each call.
    virtual std::unique_ptr<ModelData> LoadModel() const = 0;

    Utils::Vector3 modelOffset = Utils::Vector3::Zero(); ///< metres
    Utils::Vector3 pilotEye = Utils::Vector3::Zero();    ///< metres, in the model's axes
    std::string panelConfigPath;                         ///< empty for X-Plane aircraft
    std::string furtherPath;                             ///< nothing reads it
    std::string textureFolder; ///< that texture names are relative to; empty where they are whole paths
};

} // namespace CockpitModel
