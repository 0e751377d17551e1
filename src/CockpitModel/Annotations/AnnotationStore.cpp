#include "CockpitModel/Annotations/AnnotationStore.h"

#include "CockpitModel/Annotations/AnnotationXml.h"
#include "CockpitModel/SceneGraph.h"
#include "Logging/Logger.h"
#include "Sim/AircraftInfo.h"
#include "Utils/Files.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <utility>

namespace CockpitModel {

namespace {

constexpr const char* kFolder = "QVRA/Annotations";
constexpr const char* kFullFolder = "QVRA/Annotations/full";

template <typename Records>
auto& SlotOf(Records& records, const NodePart& part) {
    return Utils::At(Utils::At(records, part.node->index), part.id);
}

/// `sorted` is in the order of the addresses.
bool Contains(const std::vector<AnnotationRecord>& sorted, const AnnotationRecord& record) {
    const auto first = std::ranges::lower_bound(sorted, record.Address(), {}, &AnnotationRecord::Address);
    const auto last = std::ranges::upper_bound(sorted, record.Address(), {}, &AnnotationRecord::Address);
    return std::find(first, last, record) != last;
}

/// Whether a text contains anything beyond these records.
bool SaysMore(const std::string& xml, std::vector<AnnotationRecord> records) {
    const AnnotationText text = ParseAnnotations(xml);
    if (!text.isXml || text.saysMore)
        return true;
    std::ranges::sort(records, {}, &AnnotationRecord::Address);
    return std::ranges::any_of(text.elements,
                               [&](const AnnotationElement& element) { return !Contains(records, element.record); });
}

} // namespace

std::string AnnotationFile(const Sim::AircraftInfo& info, Reading reading) {
    return std::string(reading == Reading::Full ? kFullFolder : kFolder) + "/" + Sim::FolderStem(info.acfPath) + ".xml";
}

std::string AnnotationPath(const Sim::AircraftInfo& info, Reading reading) {
    boost::system::error_code ignored;
    boost::filesystem::create_directory(kFolder, ignored);
    if (reading == Reading::Full)
        boost::filesystem::create_directory(kFullFolder, ignored);
    return AnnotationFile(info, reading);
}

AnnotationSource FindAnnotations(const Sim::AircraftInfo& info, Reading reading) {
    boost::system::error_code ignored;
    const auto exists = [&](const std::string& path) { return boost::filesystem::exists(path, ignored); };
    std::string path = AnnotationFile(info, reading), ofPlain = AnnotationFile(info);
    if (reading == Reading::Full && !exists(path) && exists(ofPlain))
        return {std::move(ofPlain), true};
    return {std::move(path), false};
}

AnnotationStore::AnnotationStore(const SceneGraph& sceneGraph) : sceneGraph(&sceneGraph) {
    for (const auto& node : sceneGraph.Nodes())
        records.emplace_back(node->parts.size());
}

void AnnotationStore::Read(const std::string& path) {
    for (AnnotationRecord& record : ReadAnnotations(path))
        if (const NodePart* const part = sceneGraph->FindPart(record.Address()))
            SlotOf(records, *part) = std::move(record);
    fileRecords = ListAll();
}

Utils::SaveResult AnnotationStore::BackUpForeignContent(const std::string& path,
                                                        const std::vector<AnnotationRecord>& list) {
    backupPath.clear();
    const std::string found = Utils::ReadFile(path);
    boost::system::error_code error;
    if (found.empty() && boost::filesystem::file_size(path, error) > 0 && !error)
        return {false, "Cannot save " + path + ": the existing file cannot be read and would be lost"};
    if (found.empty() || found == writtenText)
        return {true, {}};
    std::vector<AnnotationRecord> known = fileRecords;
    known.insert(known.end(), list.begin(), list.end());
    if (!SaysMore(found, std::move(known)))
        return {true, {}};
    for (int number = 1; backupPath.empty() || boost::filesystem::exists(backupPath); ++number)
        backupPath = path + ".kept-" + std::to_string(number);
    Logging::Logger::Get().Log(HERE, path + " contained more than the records; the original was kept as " + backupPath);
    return Utils::SaveFile(backupPath, found);
}

Utils::SaveResult AnnotationStore::Write(const std::string& path) noexcept {
    try {
        std::vector<AnnotationRecord> list = ListAll();
        if (Utils::SaveResult kept = BackUpForeignContent(path, list); !kept)
            return kept;
        std::string xml = AnnotationsToXml(list);
        Utils::SaveResult saved = Utils::SaveFile(path, xml);
        if (saved) {
            writtenText = std::move(xml);
            fileRecords = std::move(list);
        }
        return saved;
    } catch (...) {
        return Utils::NotSaved("Cannot be saved");
    }
}

std::optional<AnnotationRecord> AnnotationStore::Get(const NodePart& part) const {
    return SlotOf(records, part);
}

void AnnotationStore::Set(const NodePart& part, std::optional<AnnotationRecord> record) {
    SlotOf(records, part) = std::move(record);
}

std::vector<AnnotationRecord> AnnotationStore::ListAll() const {
    std::vector<AnnotationRecord> list;
    for (const auto& slots : records)
        for (const auto& slot : slots)
            if (slot)
                list.push_back(*slot);
    return list;
}

PartEvaluation AnnotationStore::Evaluate(const NodePart& part) const {
    PartEvaluation evaluation;
    evaluation.part = &part;
    evaluation.testPassed = false;
    evaluation.interactionType = part.InteractionType;
    evaluation.annotation = Get(part);
    if (!evaluation.annotation)
        return evaluation;
    const AnnotationRecord& record = *evaluation.annotation;
    evaluation.hasTest = record.InteractionTypeTest.has_value();
    evaluation.testPassed = record.InteractionTypeTest == part.InteractionType;
    evaluation.interactionType = record.InteractionType.value_or(part.InteractionType);
    return evaluation;
}

} // namespace CockpitModel
