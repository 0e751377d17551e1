#include "Batch/AircraftSelection.h"

#include "Annotator/FailureTexts.h"
#include "Batch/Jobs/Process.h"
#include "Sim/XPAircraftListLoader.h"
#include "Utils/Numbers.h"
#include "Utils/Text.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>
#include <set>

namespace Batch {

namespace {

/// So many aircraft are offered where a word means none.
constexpr std::size_t kOffered = 40;
constexpr std::size_t kMostJobs = 1024;

bool Contains(const std::string& text, const std::string& lowerWord) {
    return Utils::ToLowerAscii(text).find(lowerWord) != std::string::npos;
}

/// Names are compared as they are shown, too: a person types what they see.
bool Matches(const Sim::AircraftInfo& info, const std::string& lowerWord) {
    return !lowerWord.empty() &&
           (Contains(info.acfPath, lowerWord) || Contains(info.displayName, lowerWord) ||
            Contains(Shown(info.acfPath), lowerWord) || Contains(Shown(info.displayName), lowerWord));
}

/// A line each, so many as a person may want to read.
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
    if (const std::string* acfPath = JobAircraft()) {
        Sim::AircraftList only;
        only.push_back(Sim::XPAircraftListLoader::LoadAircraft(*acfPath));
        return only;
    }
    const std::string folder = boost::filesystem::current_path().string();
    try {
        // A wrong folder in a script must not look like an installation in which all is well.
        if (!boost::filesystem::exists("Aircraft"))
            throw CommandError(kWrongUsage, folder + " is no X-Plane installation: there is no folder Aircraft in it");
        Sim::AircraftList aircraft = Sim::XPAircraftListLoader().LoadAircraftList();
        if (aircraft.empty())
            console.Message("no aircraft below " + folder + "/Aircraft");
        return aircraft;
    } catch (const boost::filesystem::filesystem_error& error) {
        throw CommandError(kAircraftFailed, "cannot list the aircraft: " + Annotator::ReasonText(error));
    }
}

const Sim::AircraftInfo& SelectAircraft(const Sim::AircraftList& aircraft, const std::string& word) {
    AircraftSelection matches;
    for (const auto& info : aircraft) {
        // A whole path means its aircraft, though it may be a part of another's name.
        if (info->acfPath == word || Shown(info->acfPath) == word)
            return *info;
        if (Matches(*info, Utils::ToLowerAscii(word)))
            matches.push_back(info.get());
    }
    if (matches.size() > 1)
        throw CommandError(kWrongUsage, "'" + word + "' means several aircraft:" + Listed(matches));
    if (matches.empty())
        throw CommandError(kWrongUsage, "'" + word + "' means no aircraft; there are:" + Listed(All(aircraft)));
    return *matches.front();
}

AircraftSelection SelectAircraft(const Sim::AircraftList& aircraft, const std::vector<std::string>& words) {
    AircraftSelection selection = All(aircraft);
    if (words.empty() || JobAircraft())
        return selection;
    std::set<const Sim::AircraftInfo*> wanted;
    for (const std::string& word : words)
        wanted.insert(&SelectAircraft(aircraft, word));
    std::erase_if(selection, [&](const Sim::AircraftInfo* info) { return !wanted.contains(info); });
    return selection;
}

void AddAircraftOption(CLI::App& app, std::vector<std::string>& words) {
    app.add_option("AIRCRAFT", words, "Only these aircraft")->type_name("");
}

void AddJobsOption(CLI::App& app, std::size_t& jobs) {
    const auto parse = [&jobs](const std::string& text) {
        const auto number = Utils::ParseWhole<std::size_t>(text);
        if (!number || *number < 1 || *number > kMostJobs)
            throw CLI::ValidationError("--jobs",
                                       "'" + text + "' is not a number from 1 to " + std::to_string(kMostJobs));
        jobs = *number;
    };
    app.add_option_function<std::string>("--jobs,-j", parse,
                                         "Aircraft to process in parallel (default: number of processors)")
        ->type_name("N");
}

void AddUntexturedOption(CLI::App& app, Annotator::LoadOptions& load) {
    app.add_flag("--untextured", load.untextured,
                 "Loads cockpits with parts that have no TEXTURE too, giving such parts a plain material");
}

std::string NameOf(const Sim::AircraftInfo& info) {
    return Shown(info.displayName + " (" + info.acfPath + ")");
}

} // namespace Batch
