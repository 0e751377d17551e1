#include "Sim/XPAircraftListLoader.h"

#include "Sim/AcfFile.h"
#include "Sim/XPAircraftInfo.h"
#include "Utils/Files.h"
#include "Utils/Text.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <optional>

namespace fs = boost::filesystem;

namespace Sim {

namespace {

/// The type of an entry after following links. A dangling or circular link counts as not found; an entry whose status
/// cannot be read throws.
fs::file_type TypeOf(const fs::directory_entry& entry) {
    boost::system::error_code error;
    const fs::file_status status = entry.status(error);
    if (status.type() == fs::status_error && error != boost::system::errc::too_many_symbolic_link_levels)
        throw fs::filesystem_error("cannot read the file's type", entry.path(), error);
    return status.type();
}

std::vector<fs::path> Subfolders(const fs::path& folder) {
    std::vector<fs::path> subfolders;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (TypeOf(entry) == fs::directory_file)
            subfolders.push_back(entry.path());
    return subfolders;
}

std::optional<fs::path> FirstAcfFile(const fs::path& folder) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (Utils::ToLowerAscii(entry.path().extension().string()) == ".acf" && TypeOf(entry) == fs::regular_file)
            return entry.path();
    return std::nullopt;
}

/// A value with each run of spaces and tabs replaced by one space.
std::string Joined(std::string_view value) {
    std::string text;
    for (const std::string_view word : Utils::SplitBlanks(value))
        (text.empty() ? text : text += ' ') += word;
    return text;
}

} // namespace

AircraftList XPAircraftListLoader::LoadAircraftList() {
    AircraftList list;
    const fs::path root = "Aircraft";
    if (!fs::exists(root))
        return list;
    for (const fs::path& group : Subfolders(root))
        for (const fs::path& aircraft : Subfolders(group))
            if (const std::optional<fs::path> acfPath = FirstAcfFile(aircraft))
                list.push_back(LoadAircraft(acfPath->string()));
    return list;
}

std::unique_ptr<AircraftInfo> XPAircraftListLoader::LoadAircraft(const std::string& acfPath) {
    auto info = std::make_unique<XPAircraftInfo>();
    info->acfPath = acfPath;
    info->displayName = fs::path(acfPath).filename().string();
    std::ifstream file = Utils::OpenFile(acfPath);
    if (const std::string description = LastAcfProperty(file, "acf/_descrip"); !description.empty())
        info->displayName = Joined(description);
    return info;
}

} // namespace Sim
