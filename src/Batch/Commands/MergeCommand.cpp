#include "Batch/Commands.h"
#include "Batch/Reports/Json.h"
#include "Batch/Reports/PublishReport.h"
#include "Utils/Files.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <map>
#include <memory>

namespace Batch {

namespace {

namespace fs = boost::filesystem;

using CockpitModel::Reading;

struct MergeOptions {
    ReportOptions reports;
    bool full = false;
    std::vector<std::string> parts;
};

/// The JSON reports of a folder, sorted by name, so that numbered reports keep their order.
std::vector<std::string> PartsOf(const std::string& path) {
    boost::system::error_code error;
    if (!fs::is_directory(path, error))
        return {path};
    std::vector<std::string> parts;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().extension() == ".json")
            parts.push_back(entry->path().string());
    if (error)
        throw CommandError(kAircraftFailed, path + ": " + error.message());
    if (parts.empty())
        throw CommandError(kAircraftFailed, path + ": the folder contains no JSON report (*.json)");
    std::ranges::sort(parts);
    return parts;
}

TestReport ReadPart(const std::string& path) {
    const std::string json = Utils::ReadFile(path);
    if (json.empty())
        throw CommandError(kAircraftFailed, path + ": the file is missing, empty or unreadable");
    try {
        return ParseReport(json);
    } catch (const Json::exception& error) {
        throw CommandError(kAircraftFailed, path + ": not a JSON report of 'test': " + error.what());
    } catch (const std::runtime_error& error) {
        throw CommandError(kAircraftFailed, path + ": " + error.what());
    }
}

/// Collects parts of one reading. An aircraft in two of them would be counted twice.
class Merger {
public:
    explicit Merger(bool full) : reading(full ? Reading::Full : Reading::Plain) {}

    void Add(const std::string& path) {
        for (AircraftReport& aircraft : ReadPart(path)) {
            const std::string& acf = aircraft.tests.acfPath;
            if (aircraft.tests.reading != reading)
                throw CommandError(kWrongUsage, path + (reading == Reading::Full
                                                            ? ": not a report of 'test --full'; merge it without --full"
                                                            : ": a report of 'test --full'; merge it with --full"));
            if (!report.empty() && report.front().tests.source != aircraft.tests.source)
                throw CommandError(kWrongUsage,
                                   path + ": reports of 'test --vrconfig' are merged only with each other");
            if (const auto [other, isNew] = partOf.try_emplace(acf, path); !isNew)
                throw CommandError(kWrongUsage, acf + " is in both " + other->second + " and " + path +
                                                    "; leave one of them out so that its tests are counted once");
            report.push_back(std::move(aircraft));
        }
    }

    TestReport report;

private:
    const Reading reading;
    std::map<std::string, std::string> partOf; ///< by acfPath
};

/// A part that cannot be read ends the command: a report without its aircraft would look complete.
ExitCode Merge(const MergeOptions& options, Session& session) {
    Merger merger(options.full);
    for (const std::string& word : options.parts)
        for (const std::string& part : PartsOf(session.ResolveArgument(word)))
            merger.Add(part);
    return PublishReport(merger.report, options.reports, session);
}

} // namespace

Action PrepareMerge(CLI::App& app) {
    auto options = std::make_shared<MergeOptions>();
    AddReportOptions(app, options->reports);
    app.add_flag("--full", options->full, "The parts are reports of 'test --full'");
    app.add_option("PART", options->parts, "JSON reports, or folders of reports, which are read in order of file name")
        ->type_name("")
        ->required();
    return {[options](Session& session) { return Merge(*options, session); }};
}

} // namespace Batch
