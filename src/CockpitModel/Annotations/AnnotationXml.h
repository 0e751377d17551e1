#pragma once

#include "CockpitModel/Annotations/AnnotationRecord.h"

#include <string>
#include <vector>

namespace CockpitModel {

/// A value of an annotation file that its reader does not take as it stands.
struct UnreadValue {
    const char* name = ""; ///< of its element
    std::string text;
    std::uint32_t line = 0;
    bool inPart = false; ///< the beginning was read: 12 of "12a"; otherwise the field keeps its default
};

/// One "Override" element.
struct AnnotationElement {
    AnnotationRecord record;
    std::uint32_t line = 0;
    std::vector<UnreadValue> unread;
};

/// What an annotation file says.
struct AnnotationText {
    bool isXml = false;                      ///< it parses and has a root
    std::uint32_t errorLine = 0;             ///< of a text that does not parse
    std::vector<AnnotationElement> elements; ///< in file order, also those without a place in the scene
    bool saysMore = false;                   ///< than the records: unread values, comments, unknown elements
};

AnnotationText ParseAnnotations(const std::string& xml);

/// The records of an annotation file in file order, also those without a place. Empty for a file that cannot be read
/// or is no XML.
std::vector<AnnotationRecord> ReadAnnotations(const std::string& path);

/// Whether a text parses as XML with a root.
bool IsXml(const std::string& text);

/// The text of an annotation file.
std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records);

/// The text of an annotation file with the InteractionTypeTest of these records set for their parts. All else that
/// stands in it stays: other fields, words that are not known, records without a place, comments. An empty text makes
/// a new file; one that is not well-formed throws std::runtime_error. The time grows with the size of both.
std::string AddExpectations(const std::string& xml, const std::vector<AnnotationRecord>& expectations);

} // namespace CockpitModel
