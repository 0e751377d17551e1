#include "Batch/AircraftSelection.h"

#include "Annotator/FailureTexts.h"
#include "Sim/XPAircraftListLoader.h"
#include "Utils/Text.h"

#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <set>

namespace Batch {

namespace {

/// Aircraft that are listed when an argument matches none.
constexpr std::size_t kOffered = 40;

bool Contains(const std::string& text, const std::string& lowerName) {
    return Utils::ToLowerAscii(text).find(lowerName) != std::string::npos;
}

/// Names are also compared as they are printed, because the user types what they see.
bool Matches(const Sim::AircraftInfo& info, const std::string& lowerName) {
    return !lowerName.empty() &&
           (Contains(info.acfPath, lowerName) || Contains(info.displayName, lowerName) ||
            Contains(Shown(info.acfPath), lowerName) || Contains(Shown(info.displayName), lowerName));
}

/// One line per aircraft, at most kOffered.
std::string Listed(const AircraftSelection& aircraft) {
    std::string text;
    for (std::size_t i = 0; i < std::min(aircraft.size(), kOffered); ++i)
        text += "\n  " + NameOf(*aircraft[i]);
    if (aircraft.size() > kOffered)
        text += "\n  and " + std::to_string(aircraft.size() - kOffered) + " more";
    return text;
}

AircraftSelection All(const Sim::AircraftList& aircraft) {
    AircraftSelection all;
    for (const auto& info : aircraft)
        all.push_back(info.get());
    return all;
}

} // namespace

Sim::AircraftList LoadInstallation(Console& console) {
    const std::string folder = boost::filesystem::current_path().string();
    try {
        // A wrong folder in a script must not pass as an installation without problems.
        if (!boost::filesystem::exists("Aircraft"))
            throw CommandError(kWrongUsage, folder + " is not an X-Plane installation: it has no folder Aircraft");
        Sim::AircraftList aircraft = Sim::XPAircraftListLoader().LoadAircraftList();
        if (aircraft.empty())
            console.Message("no aircraft found in " + folder + "/Aircraft");
        return aircraft;
    } catch (const boost::filesystem::filesystem_error& error) {
        throw CommandError(kAircraftFailed, "cannot list the aircraft: " + Annotator::ReasonText(error));
    }
}

const Sim::AircraftInfo& SelectAircraft(const Sim::AircraftList& aircraft, const std::string& name) {
    AircraftSelection matches;
    for (const auto& info : aircraft) {
        // A complete path selects its aircraft even if another path or name contains it.
        if (info->acfPath == name || Shown(info->acfPath) == name)
            return *info;
        if (Matches(*info, Utils::ToLowerAscii(name)))
            matches.push_back(info.get());
    }
    if (matches.size() > 1)
        throw CommandError(kWrongUsage, "several aircraft match '" + name + "':" + Listed(matches));
    if (matches.empty())
        throw CommandError(kWrongUsage, "no aircraft matches '" + name + "'; available:" + Listed(All(aircraft)));
    return *matches.front();
}

AircraftSelection SelectAircraft(const Sim::AircraftList& aircraft, const std::vector<std::string>& names) {
    AircraftSelection selection = All(aircraft);
    if (names.empty())
        return selection;
    std::set<const Sim::AircraftInfo*> wanted;
    for (const std::string& name : names)
        wanted.insert(&SelectAircraft(aircraft, name));
    std::erase_if(selection, [&](const Sim::AircraftInfo* info) { return !wanted.contains(info); });
    return selection;
}

std::string NameOf(const Sim::AircraftInfo& info) {
    return Shown(info.displayName + " (" + info.acfPath + ")");
}

} // namespace Batch
