#pragma once

#include "Batch/Command.h"
#include "Sim/AircraftListLoader.h"

#include <string>
#include <vector>

namespace Batch {

using AircraftSelection = std::vector<const Sim::AircraftInfo*>;

/// The aircraft of the installation in the working directory, in the order of the desktop tool's list; prints a message
/// if there are none. A folder that is not an installation or cannot be scanned ends the command.
Sim::AircraftList LoadInstallation(Console& console);

/// The aircraft that the names match, in list order and once each; all aircraft if there are no names. A name is an
/// acfPath or a part of a path or display name, in upper or lower case. One that matches none or several aircraft ends
/// the command with a list of candidates.
AircraftSelection SelectAircraft(const Sim::AircraftList& aircraft, const std::vector<std::string>& names);
const Sim::AircraftInfo& SelectAircraft(const Sim::AircraftList& aircraft, const std::string& name);

/// An aircraft in a message: its name and its path, through Shown.
std::string NameOf(const Sim::AircraftInfo& info);

} // namespace Batch
