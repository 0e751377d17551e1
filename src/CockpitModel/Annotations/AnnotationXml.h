#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// The records of an annotation file in file order, also those without a place. Empty for a file that cannot be read
/// or is no XML. A field with an unknown word keeps its default.
std::vector<AnnotationRecord> ReadAnnotations(const std::string& path);

/// The same from a file's text.
std::vector<AnnotationRecord> AnnotationsFromXml(const std::string& xml);
/// Whether a text parses as XML with a root.
bool IsXml(const std::string& text);
/// Whether a text says what these records say and nothing else: no comment, unknown word or record without a place.
bool SaysJust(const std::string& xml, const std::vector<AnnotationRecord>& records);

/// The text of an annotation file.
std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records);

/// The text of an annotation file with the InteractionTypeTest of these records set for their parts. All else that
/// stands in it stays: other fields, words that are not known, records without a place, comments. An empty text makes
/// a new file; one that is not well-formed throws std::runtime_error.
std::string WithExpectations(const std::string& xml, const std::vector<AnnotationRecord>& expectations);

} // namespace CockpitModel
