#include "Sim/XPAircraftListLoader.h"

#include "Sim/AcfFile.h"
#include "Sim/XPAircraftInfo.h"
#include "Utils/Files.h"
#include "Utils/LineBlocks.h"
#include "Utils/Text.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <optional>

namespace fs = boost::filesystem;

namespace Sim {

namespace {

/// What an entry is once links are followed. A link that leads nowhere or in a circle is nothing at all; an entry that
/// cannot be asked throws.
fs::file_type TypeOf(const fs::directory_entry& entry) {
    boost::system::error_code error;
    const fs::file_status status = entry.status(error);
    if (status.type() == fs::status_error && error != boost::system::errc::too_many_symbolic_link_levels)
        throw fs::filesystem_error("cannot tell what this is", entry.path(), error);
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

/// A value's words with one space between each.
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
    Utils::LineBlocks blocks(file);
    for (std::string_view block; blocks.Next(block);)
        if (const std::string_view description = LastAcfProperty(block, "acf/_descrip"); !description.empty())
            info->displayName = Joined(description);
    return info;
}

} // namespace Sim
