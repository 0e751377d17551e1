#include "CockpitModel/Annotations/AnnotationXml.h"

#include "Utils/Paths.h"

#include <exception>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <tinyxml2.h>
#include <utility>

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

std::string Printed(const tinyxml2::XMLDocument& document) {
    tinyxml2::XMLPrinter printer;
    document.Print(&printer);
    return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1};
}

using Place = std::pair<std::int32_t, std::int32_t>; ///< node and part

Place PlaceOf(const XMLElement& element) {
    const AnnotationRecord record = ReadRecord(element);
    return {record.NodeId, record.PartId};
}

/// Of several elements of one part, the last one counts.
XMLElement* ElementOf(XMLElement& root, const Place& place) {
    XMLElement* element = root.LastChildElement("Override");
    while (element && PlaceOf(*element) != place)
        element = element->PreviousSiblingElement("Override");
    return element;
}

/// In the order of a file that the desktop tool writes.
void InsertRecord(XMLElement& root, const AnnotationRecord& record) {
    AddRecord(root, record);
    XMLElement* added = root.LastChildElement("Override");
    for (XMLElement* later = root.FirstChildElement("Override"); later != added;
         later = later->NextSiblingElement("Override")) {
        if (PlaceOf(*later) < PlaceOf(*added))
            continue;
        if (tinyxml2::XMLNode* before = later->PreviousSibling())
            root.InsertAfterChild(before, added);
        else
            root.InsertFirstChild(added);
        return;
    }
}

void SetExpectation(XMLElement& element, const std::string& type) {
    XMLElement* expectation = element.FirstChildElement("InteractionTypeTest");
    if (!expectation) {
        expectation = element.GetDocument()->NewElement("InteractionTypeTest");
        XMLElement* before = element.FirstChildElement("InteractionType");
        element.InsertAfterChild(before ? before : element.FirstChildElement("PartId"), expectation);
    }
    expectation->DeleteChildren();
    expectation->SetText(type.c_str());
}

} // namespace

std::vector<AnnotationRecord> ReadAnnotations(const std::string& path) {
    return AnnotationsFromXml(Utils::ReadFile(path));
}

std::vector<AnnotationRecord> AnnotationsFromXml(const std::string& xml) {
    std::vector<AnnotationRecord> records;
    tinyxml2::XMLDocument document;
    if (document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS || !document.RootElement())
        return records;
    for (const XMLElement* element = document.RootElement()->FirstChildElement("Override"); element;
         element = element->NextSiblingElement("Override"))
        records.push_back(ReadRecord(*element));
    return records;
}

bool IsXml(const std::string& text) {
    tinyxml2::XMLDocument document;
    return document.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS && document.RootElement();
}

bool SaysJust(const std::string& xml, const std::vector<AnnotationRecord>& records) {
    tinyxml2::XMLDocument document;
    return document.Parse(xml.data(), xml.size()) == tinyxml2::XML_SUCCESS &&
           Printed(document) == AnnotationsToXml(records);
}

std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records) {
    tinyxml2::XMLDocument document;
    XMLElement* root = document.NewElement("Overrides");
    document.InsertEndChild(root);
    for (const AnnotationRecord& record : records)
        AddRecord(*root, record);
    return Printed(document);
}

std::string WithExpectations(const std::string& xml, const std::vector<AnnotationRecord>& expectations) {
    tinyxml2::XMLDocument document;
    if (!xml.empty() && document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error("line " + std::to_string(document.ErrorLineNum()) +
                                 " is not well-formed XML, which it has to be for a record to be added");
    if (!document.RootElement())
        document.InsertEndChild(document.NewElement("Overrides"));
    XMLElement& root = *document.RootElement();
    for (const AnnotationRecord& expectation : expectations) {
        if (XMLElement* element = ElementOf(root, {expectation.NodeId, expectation.PartId}))
            SetExpectation(*element, TouchInteractionTypeToText(expectation.InteractionTypeTest.value()));
        else
            InsertRecord(root, expectation);
    }
    return Printed(document);
}

} // namespace CockpitModel
