#include "Annotator/DetectedDataFile.h"
#include "Batch/Commands.h"
#include "Batch/Reports/Json.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <memory>
#include <optional>
#include <set>

namespace Batch {

namespace {

namespace fs = boost::filesystem;

using Annotator::DetectedPart;
using Annotator::DetectedParts;
using CockpitModel::TouchEventTypeToText;
using CockpitModel::TouchInteractionTypeToText;

struct CompareOptions {
    std::string a, b;
    bool json = false;
};

/// A part that differs between the files or is in only one of them.
struct PartDifference {
    CockpitModel::PartAddress address;
    std::optional<DetectedPart> a, b;
};

/// The files of one name. A file that is in only one folder is not read.
struct FileDifference {
    std::string name;
    bool inA = true, inB = true;
    std::vector<PartDifference> parts;
};

struct Comparison {
    std::vector<FileDifference> files; ///< those that differ, by name
    std::size_t compared = 0;          ///< found in both folders and read
    std::size_t unreadable = 0;
};

std::set<std::string> DetectedDataFiles(const std::string& folder) {
    boost::system::error_code error;
    std::set<std::string> names;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().extension() == ".xml")
            names.insert(entry->path().filename().string());
    if (error)
        throw CommandError(kAircraftFailed, folder + ": " + error.message());
    return names;
}

std::vector<PartDifference> Differences(const DetectedParts& a, const DetectedParts& b) {
    std::vector<PartDifference> differences;
    DetectedParts all = a;
    all.insert(b.begin(), b.end());
    const auto find = [](const DetectedParts& parts, CockpitModel::PartAddress address) {
        const auto found = parts.find(address);
        return found == parts.end() ? std::nullopt : std::optional(found->second);
    };
    for (const auto& [address, part] : all)
        if (PartDifference difference{address, find(a, address), find(b, address)}; difference.a != difference.b)
            differences.push_back(difference);
    return differences;
}

/// Prints a message for every file that cannot be read.
std::optional<DetectedParts> ReadOrTell(const std::string& folder, const std::string& name, Console& console) {
    const std::string path = (fs::path(folder) / name).string();
    try {
        return Annotator::ReadDetectedData(path);
    } catch (const std::exception& error) {
        console.Message(path + ": " + error.what());
        return std::nullopt;
    }
}

Comparison CompareFolders(const std::string& folderA, const std::string& folderB, Console& console) {
    const std::set<std::string> namesA = DetectedDataFiles(folderA), namesB = DetectedDataFiles(folderB);
    std::set<std::string> all = namesA;
    all.insert(namesB.begin(), namesB.end());
    if (all.empty())
        throw CommandError(kAircraftFailed, "neither folder contains a detected-data file (*.xml)");
    Comparison comparison;
    for (const std::string& name : all) {
        FileDifference file{name, namesA.contains(name), namesB.contains(name), {}};
        if (file.inA && file.inB) {
            const auto a = ReadOrTell(folderA, name, console), b = ReadOrTell(folderB, name, console);
            comparison.unreadable += !a + !b;
            comparison.compared += a && b;
            if (!a || !b || (file.parts = Differences(*a, *b)).empty())
                continue;
        }
        comparison.files.push_back(std::move(file));
    }
    return comparison;
}

std::string Change(const DetectedPart& a, const DetectedPart& b) {
    std::string text;
    const auto add = [&](const std::string& name, const std::string& before, const std::string& after) {
        if (before != after)
            text += (text.empty() ? "" : ", ") + name + before + " -> " + after;
    };
    add("", TouchInteractionTypeToText(a.interactionType), TouchInteractionTypeToText(b.interactionType));
    add("EventType ", TouchEventTypeToText(a.eventType), TouchEventTypeToText(b.eventType));
    add("Reverse ", a.reverse ? "1" : "0", b.reverse ? "1" : "0");
    return text;
}

std::string PartText(const PartDifference& part) {
    std::string text =
        "  node " + std::to_string(part.address.node) + " part " + std::to_string(part.address.part) + ": ";
    if (part.a && part.b)
        text += Change(*part.a, *part.b);
    else if (part.b)
        text += std::string("appeared as ") + TouchInteractionTypeToText(part.b->interactionType);
    else
        text += std::string("vanished, was ") + TouchInteractionTypeToText(part.a->interactionType);
    return text + '\n';
}

void PrintAsText(const Comparison& comparison, const CompareOptions& options) {
    for (const FileDifference& file : comparison.files) {
        std::string text = Shown(file.name);
        if (!file.inA || !file.inB)
            text += ": only in " + Shown(file.inA ? options.a : options.b);
        text += '\n';
        for (const PartDifference& part : file.parts)
            text += PartText(part);
        Print(text);
    }
}

Json ToJson(const std::optional<DetectedPart>& part) {
    if (!part)
        return nullptr;
    return {{"interactionType", TouchInteractionTypeToText(part->interactionType)},
            {"eventType", TouchEventTypeToText(part->eventType)},
            {"reverse", part->reverse}};
}

Json ToJson(const FileDifference& file) {
    Json parts = Json::array();
    for (const PartDifference& part : file.parts)
        parts.push_back({{"nodeId", part.address.node},
                         {"partId", part.address.part},
                         {"a", ToJson(part.a)},
                         {"b", ToJson(part.b)}});
    return {{"file", JsonText(file.name)}, {"inA", file.inA}, {"inB", file.inB}, {"parts", std::move(parts)}};
}

void PrintAsJson(const Comparison& comparison, const CompareOptions& options) {
    Json files = Json::array();
    for (const FileDifference& file : comparison.files)
        files.push_back(ToJson(file));
    const Json json{{"a", JsonText(options.a)},
                    {"b", JsonText(options.b)},
                    {"compared", comparison.compared},
                    {"unreadable", comparison.unreadable},
                    {"files", std::move(files)}};
    PrintJson(json.dump(1) + '\n');
}

ExitCode Compare(const CompareOptions& options, Session& session) {
    const Comparison comparison =
        CompareFolders(session.ResolveArgument(options.a), session.ResolveArgument(options.b), session.console);
    (options.json ? PrintAsJson : PrintAsText)(comparison, options);
    FlushPrinted();
    std::size_t parts = 0;
    for (const FileDifference& file : comparison.files)
        parts += file.parts.size();
    session.console.Message(
        Counted(comparison.compared, "file") + " compared, " + Counted(parts, "part differs", "parts differ") + ", " +
        std::to_string(std::ranges::count_if(comparison.files, [](const auto& file) { return file.inA != file.inB; })) +
        " in only one folder");
    return comparison.unreadable > 0 ? kAircraftFailed : comparison.files.empty() ? kDone : kTestFailed;
}

} // namespace

Action PrepareCompare(CLI::App& app) {
    auto options = std::make_shared<CompareOptions>();
    app.add_option("A", options->a, "Folder with the older files")->type_name("")->required();
    app.add_option("B", options->b, "Folder with the newer files")->type_name("")->required();
    app.add_flag("--json", options->json, "Print the differences as JSON");
    return {[options](Session& session) { return Compare(*options, session); }};
}

} // namespace Batch
