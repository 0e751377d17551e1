#include "CockpitModel/Annotations/AnnotationXml.h"

#include "Utils/Paths.h"

#include <exception>
#include <locale>
#include <sstream>
#include <tinyxml2.h>

namespace CockpitModel {

namespace {

using tinyxml2::XMLElement;

constexpr std::int32_t kNoId = -1;

/// The text behind a comment does not count.
std::string TextOf(const XMLElement& element) {
    const tinyxml2::XMLNode* first = element.FirstChild();
    return first && first->ToText() ? first->Value() : "";
}

std::istringstream StreamOf(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    return stream;
}

/// A number too great or too small is the nearest there is, which the stream tells by failing with it.
std::int32_t IdFromText(const std::string& text) {
    std::istringstream stream = StreamOf(text);
    std::int32_t id = 0;
    return stream >> id || id != 0 ? id : kNoId;
}

bool BoolFromText(const std::string& text) {
    std::istringstream stream = StreamOf(text);
    bool value = false;
    return stream >> value && value;
}

/// Leaves the field alone where there is no such element or the conversion rejects its text.
template <typename Field, typename FromText>
void ReadField(const XMLElement& element, const char* name, Field& field, FromText fromText) {
    const XMLElement* child = element.FirstChildElement(name);
    if (!child)
        return;
    try {
        field = fromText(TextOf(*child));
    } catch (const std::exception&) {
        // an unknown word: the rest of the record counts
    }
}

AnnotationRecord ReadRecord(const XMLElement& element) {
    AnnotationRecord record;
    ReadField(element, "NodeId", record.NodeId, IdFromText);
    ReadField(element, "PartId", record.PartId, IdFromText);
    ReadField(element, "InteractionType", record.InteractionType, TouchInteractionTypeFromText);
    ReadField(element, "InteractionTypeTest", record.InteractionTypeTest, TouchInteractionTypeFromText);
    ReadField(element, "EventType", record.EventType, TouchEventTypeFromText);
    ReadField(element, "Tooltip", record.Tooltip, [](std::string text) { return text; });
    ReadField(element, "Reverse", record.Reverse, BoolFromText);
    return record;
}

void AddText(XMLElement& parent, const char* name, const std::string& text) {
    parent.InsertNewChildElement(name)->SetText(text.c_str());
}

void AddRecord(XMLElement& root, const AnnotationRecord& record) {
    XMLElement& element = *root.InsertNewChildElement("Override");
    AddText(element, "NodeId", std::to_string(record.NodeId));
    AddText(element, "PartId", std::to_string(record.PartId));
    if (record.InteractionType)
        AddText(element, "InteractionType", TouchInteractionTypeToText(*record.InteractionType));
    if (record.InteractionTypeTest)
        AddText(element, "InteractionTypeTest", TouchInteractionTypeToText(*record.InteractionTypeTest));
    if (record.EventType)
        AddText(element, "EventType", TouchEventTypeToText(*record.EventType));
    if (record.Tooltip)
        AddText(element, "Tooltip", *record.Tooltip);
    AddText(element, "Reverse", record.Reverse ? "1" : "0");
}

} // namespace

std::vector<AnnotationRecord> ReadAnnotations(const std::string& path) {
    std::vector<AnnotationRecord> records;
    tinyxml2::XMLDocument document;
    const std::string text = Utils::ReadFile(path);
    if (document.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS || !document.RootElement())
        return records;
    for (const XMLElement* element = document.RootElement()->FirstChildElement("Override"); element;
         element = element->NextSiblingElement("Override"))
        records.push_back(ReadRecord(*element));
    return records;
}

std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records) {
    tinyxml2::XMLDocument document;
    XMLElement* root = document.NewElement("Overrides");
    document.InsertEndChild(root);
    for (const AnnotationRecord& record : records)
        AddRecord(*root, record);
    tinyxml2::XMLPrinter printer;
    document.Print(&printer);
    return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1};
}

} // namespace CockpitModel
