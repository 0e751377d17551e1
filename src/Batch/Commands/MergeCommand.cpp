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

struct MergeOptions {
    ReportOptions reports;
    std::vector<std::string> parts;
};

/// The JSON reports of a folder by name, so that numbered ones keep the order of their numbers.
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
        throw CommandError(kAircraftFailed, path + ": no JSON report (*.json) is in this folder");
    std::ranges::sort(parts);
    return parts;
}

TestReport ReadPart(const std::string& path) {
    const std::string json = Utils::ReadFile(path);
    if (json.empty())
        throw CommandError(kAircraftFailed, path + ": there is no such file, or nothing in it that can be read");
    try {
        return ParseReport(json);
    } catch (const Json::exception& error) {
        throw CommandError(kAircraftFailed, path + ": not a JSON report of 'test': " + error.what());
    } catch (const std::runtime_error& error) {
        throw CommandError(kAircraftFailed, path + ": " + error.what());
    }
}

/// Gathers parts. An aircraft that is in two of them would be counted twice.
class Merger {
public:
    void Add(const std::string& path) {
        for (AircraftReport& aircraft : ReadPart(path)) {
            const std::string& acf = aircraft.tests.acfPath;
            if (const auto [other, isNew] = partOf.try_emplace(acf, path); !isNew)
                throw CommandError(kWrongUsage, acf + " is both in " + other->second + " and in " + path +
                                                    "; leave one of them out, so that its tests count once");
            report.push_back(std::move(aircraft));
        }
    }

    TestReport report;

private:
    std::map<std::string, std::string> partOf; ///< by acfPath
};

/// One part that cannot be read ends it: a report that lacks an aircraft would look like a good one.
ExitCode Merge(const MergeOptions& options, Session& session) {
    Merger merger;
    for (const std::string& word : options.parts)
        for (const std::string& part : PartsOf(session.ResolveArgument(word)))
            merger.Add(part);
    return PublishReport(merger.report, options.reports, session);
}

} // namespace

Action PrepareMerge(CLI::App& app) {
    auto options = std::make_shared<MergeOptions>();
    AddReportOptions(app, options->reports);
    app.add_option("PART", options->parts, "JSON reports, or folders of them, which are taken in the order of names")
        ->type_name("")
        ->required();
    return [options](Session& session) { return Merge(*options, session); };
}

} // namespace Batch
