#pragma once

#include <memory>
#include <string>

namespace CockpitModel {
struct AircraftCockpit;
}

namespace Sim {

/// One aircraft of the installation. It does not change after the scan.
struct AircraftInfo {
    virtual ~AircraftInfo() = default;
    virtual std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpit() const = 0;
    virtual bool operator!=(const AircraftInfo& other) const;
    virtual std::unique_ptr<AircraftInfo> Clone() const = 0;

    std::string acfPath;     ///< relative to the installation; starts with "Aircraft"
    std::string displayName; ///< the file's bytes, unconverted
};

} // namespace Sim
