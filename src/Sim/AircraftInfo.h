#pragma once

#include "CockpitModel/Reading.h"

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
    /// A cockpit for a reading, which CreateCockpit makes for the plain one. An aircraft without files of its own has
    /// no other.
    virtual std::unique_ptr<CockpitModel::AircraftCockpit> CreateCockpitFor(CockpitModel::Reading reading) const;

    std::string acfPath;     ///< relative to the installation; starts with "Aircraft"
    std::string displayName; ///< the file's bytes, unconverted
};

/// The name of the folder that holds a file, up to that name's last dot: "A/Big.Jet 1.2/x.acf" gives "Big.Jet 1".
/// It names an aircraft's annotation and detected-data files.
std::string FolderStem(const std::string& filePath);

} // namespace Sim
