#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// A value of an annotation file that the reader does not accept in full.
struct UnreadValue {
    const char* name = ""; ///< of the element
    std::string text;
    std::uint32_t line = 0;
    bool inPart = false; ///< only the beginning was read: 12 of "12a"; otherwise the field keeps its default
};

/// One "Override" element.
struct AnnotationElement {
    AnnotationRecord record;
    std::uint32_t line = 0;
    std::vector<UnreadValue> unread;
};

/// The content of an annotation file.
struct AnnotationText {
    bool isXml = false;                      ///< the text parses and has a root
    std::uint32_t errorLine = 0;             ///< if the text does not parse
    std::vector<AnnotationElement> elements; ///< in file order, including those for parts that the scene lacks
    bool saysMore = false;                   ///< beyond the records: unread values, comments, unknown elements
};

AnnotationText ParseAnnotations(const std::string& xml);

/// The records of an annotation file in file order, including those for parts that the scene lacks. Empty for a file
/// that cannot be read or is not XML.
std::vector<AnnotationRecord> ReadAnnotations(const std::string& path);

/// Whether a text parses as XML with a root.
bool IsXml(const std::string& text);

/// The text of an annotation file.
std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records);

/// The text of an annotation file with the InteractionTypeTest of these records set for their parts. Everything else in
/// it is kept: other fields, unknown words, records for parts that the scene lacks, comments. An empty text makes a new
/// file; one that is not well-formed throws std::runtime_error. Takes time linear in the sizes of both.
std::string AddExpectations(const std::string& xml, const std::vector<AnnotationRecord>& expectations);

} // namespace CockpitModel
