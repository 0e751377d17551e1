#include "CockpitModel/Annotations/AnnotationStore.h"

#include "CockpitModel/Annotations/AnnotationXml.h"
#include "CockpitModel/SceneGraph.h"
#include "Sim/AircraftInfo.h"
#include "Utils/Paths.h"
#include "Utils/RangeCheck.h"

#include <boost/filesystem/operations.hpp>
#include <utility>

namespace CockpitModel {

namespace {

constexpr const char* kFolder = "QVRA/Annotations";

template <typename Records>
auto& SlotOf(Records& records, const NodePart& part) {
    return Utils::At(Utils::At(records, part.node->index), part.id);
}

} // namespace

std::string AnnotationPath(const Sim::AircraftInfo& info) {
    boost::system::error_code ignored;
    boost::filesystem::create_directory(kFolder, ignored);
    return std::string(kFolder) + "/" + Utils::FolderStem(info.acfPath) + ".xml";
}

AnnotationStore::AnnotationStore(const SceneGraph& sceneGraph) : sceneGraph(&sceneGraph) {
    for (const auto& node : sceneGraph.Nodes())
        records.emplace_back(node->parts.size());
}

void AnnotationStore::Read(const std::string& path) {
    for (AnnotationRecord& record : ReadAnnotations(path)) {
        if (std::cmp_less(record.NodeId, 0) || std::cmp_greater_equal(record.NodeId, records.size()))
            continue;
        auto& slots = records[static_cast<std::size_t>(record.NodeId)];
        if (std::cmp_less(record.PartId, 0) || std::cmp_greater_equal(record.PartId, slots.size()))
            continue;
        slots[static_cast<std::size_t>(record.PartId)] = std::move(record);
    }
}

Utils::SaveResult AnnotationStore::Write(const std::string& path) const noexcept {
    try {
        return Utils::SaveFile(path, AnnotationsToXml(ListAll()));
    } catch (...) {
        return {false, "Cannot be saved"}; // short enough to need no memory
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
