#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// The records of an annotation file in file order, also those without a place. Empty for a file that cannot be read
/// or is no XML. A field with an unknown word keeps its default.
std::vector<AnnotationRecord> ReadAnnotations(const std::string& path);

/// The text of an annotation file.
std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records);

} // namespace CockpitModel
