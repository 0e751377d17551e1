#include "Sim/AircraftInfo.h"

#include "CockpitModel/AircraftCockpit.h"

#include <boost/filesystem/path.hpp>

namespace Sim {

bool AircraftInfo::operator!=(const AircraftInfo& other) const {
    return acfPath != other.acfPath || displayName != other.displayName;
}

std::unique_ptr<CockpitModel::AircraftCockpit> AircraftInfo::CreateCockpitFor(CockpitModel::Reading) const {
    return CreateCockpit();
}

std::string FolderStem(const std::string& filePath) {
    return boost::filesystem::path(filePath).parent_path().stem().string();
}

} // namespace Sim
