#include "FuzzInput.h"

#include "CockpitModel/Annotations/AnnotationXml.h"

/// Reading, writing and reading again gives the same records.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryFile file(Fuzz::Text(data, size));
    const auto records = CockpitModel::ReadAnnotations(file.Path());
    const std::string text = CockpitModel::AnnotationsToXml(records);
    const Fuzz::MemoryFile copy(text);
    const auto again = CockpitModel::ReadAnnotations(copy.Path());
    Fuzz::Require(CockpitModel::AnnotationsToXml(again) == text);
    Fuzz::Require(again.size() == records.size());
    return 0;
}
