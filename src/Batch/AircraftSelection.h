#pragma once

#include "Batch/Command.h"
#include "Sim/AircraftListLoader.h"

#include <string>
#include <vector>

namespace Batch {

using AircraftSelection = std::vector<const Sim::AircraftInfo*>;

/// The aircraft of the installation in the working directory, in the order of the desktop tool's list; says so where
/// there is none. A folder that is no installation or cannot be scanned ends the command. In a
/// process for one job (JobAircraft), its aircraft alone.
Sim::AircraftList LoadInstallation(Console& console);

/// The aircraft that each word means, in list order and once each; all of them without a word. A word is an acfPath or
/// a part of a path or display name, in any case. One that means none or several ends the command with what it could
/// mean.
AircraftSelection SelectAircraft(const Sim::AircraftList& aircraft, const std::vector<std::string>& words);
const Sim::AircraftInfo& SelectAircraft(const Sim::AircraftList& aircraft, const std::string& word);

/// An aircraft in a message: its name and its path, as Shown gives them.
std::string NameOf(const Sim::AircraftInfo& info);

} // namespace Batch
