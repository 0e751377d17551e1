#include "CockpitModel/Annotations/AnnotationXml.h"

#include "Utils/Files.h"

#include <algorithm>
#include <bitset>
#include <exception>
#include <iterator>
#include <locale>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <tinyxml2.h>
#include <utility>

namespace CockpitModel {

namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

/// How much of a text was read into its field.
enum class Reading { None, Part, Whole };

/// Leaves the field unchanged unless the text begins with a value of its type.
template <typename Field>
Reading ReadFromStream(const std::string& text, Field& field) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    Field value{};
    if (!(stream >> value))
        return Reading::None;
    field = value;
    return (stream >> std::ws).eof() ? Reading::Whole : Reading::Part;
}

template <auto field>
Reading ReadValue(const std::string& text, AnnotationRecord& record) {
    return ReadFromStream(text, record.*field);
}

template <auto field, auto fromText>
Reading ReadWord(const std::string& text, AnnotationRecord& record) {
    try {
        record.*field = fromText(text);
        return Reading::Whole;
    } catch (const std::exception&) {
        return Reading::None;
    }
}

Reading ReadTooltip(const std::string& text, AnnotationRecord& record) {
    record.Tooltip = text;
    return Reading::Whole;
}

constexpr struct {
    const char* name;
    Reading (*read)(const std::string& text, AnnotationRecord& record);
} kFields[] = {
    {"NodeId", ReadValue<&AnnotationRecord::NodeId>},
    {"PartId", ReadValue<&AnnotationRecord::PartId>},
    {"InteractionType", ReadWord<&AnnotationRecord::InteractionType, TouchInteractionTypeFromText>},
    {"InteractionTypeTest", ReadWord<&AnnotationRecord::InteractionTypeTest, TouchInteractionTypeFromText>},
    {"EventType", ReadWord<&AnnotationRecord::EventType, TouchEventTypeFromText>},
    {"Tooltip", ReadTooltip},
    {"Reverse", ReadValue<&AnnotationRecord::Reverse>},
};

std::uint32_t LineOf(const XMLNode& node) {
    return static_cast<std::uint32_t>(node.GetLineNum());
}

/// Text after a comment or an element is ignored.
std::string TextOf(const XMLElement& element) {
    const XMLNode* first = element.FirstChild();
    return first && first->ToText() ? first->Value() : "";
}

/// Whether an element contains a single text or nothing.
bool IsPlain(const XMLElement& element) {
    const XMLNode* first = element.FirstChild();
    return !element.FirstAttribute() && (!first || (first->ToText() && !first->NextSibling()));
}

/// The number of fields for a node that is not a field.
std::size_t FieldIndex(const XMLNode& node) {
    const auto isNamed = [&](const auto& field) { return node.Value() == std::string_view(field.name); };
    return static_cast<std::size_t>((node.ToElement() ? std::ranges::find_if(kFields, isNamed) : std::end(kFields)) -
                                    kFields);
}

/// Of two elements with the same name, the first counts.
AnnotationElement ReadElement(const XMLElement& element, bool& saysMore) {
    AnnotationElement found;
    found.line = LineOf(element);
    std::bitset<std::size(kFields)> seen;
    saysMore |= element.FirstAttribute() != nullptr;
    for (const XMLNode* node = element.FirstChild(); node; node = node->NextSibling()) {
        const std::size_t index = FieldIndex(*node);
        if (index == seen.size() || seen[index]) {
            saysMore = true;
            continue;
        }
        seen.set(index);
        const std::string text = TextOf(*node->ToElement());
        const Reading reading = kFields[index].read(text, found.record);
        if (reading != Reading::Whole)
            found.unread.push_back({kFields[index].name, text, LineOf(*node), reading == Reading::Part});
        saysMore |= reading != Reading::Whole || !IsPlain(*node->ToElement());
    }
    return found;
}

void ReadRoot(const XMLElement& root, AnnotationText& text) {
    text.saysMore |= root.Name() != std::string_view("Overrides") || root.FirstAttribute();
    for (const XMLNode* node = root.FirstChild(); node; node = node->NextSibling()) {
        const XMLElement* element = node->ToElement();
        if (element && element->Name() == std::string_view("Override"))
            text.elements.push_back(ReadElement(*element, text.saysMore));
        else
            text.saysMore = true;
    }
}

/// Processing instructions of other programs also parse as declarations.
bool IsXmlDeclaration(const XMLNode& node) {
    return node.ToDeclaration() && std::string_view(node.Value()).starts_with("xml ");
}

XMLElement* AddText(XMLElement& parent, const char* name, const std::string& text) {
    XMLElement* element = parent.InsertNewChildElement(name);
    element->SetText(text.c_str());
    return element;
}

/// XML readers skip a text of white space only, except in CDATA.
void AddTooltip(XMLElement& parent, const std::string& text) {
    XMLElement* element = AddText(parent, "Tooltip", text);
    if (!text.empty() && std::ranges::all_of(text, tinyxml2::XMLUtil::IsWhiteSpace))
        element->FirstChild()->ToText()->SetCData(true);
}

XMLElement* NewElement(XMLDocument& document, const AnnotationRecord& record) {
    XMLElement& element = *document.NewElement("Override");
    AddText(element, "NodeId", std::to_string(record.NodeId));
    AddText(element, "PartId", std::to_string(record.PartId));
    if (record.InteractionType)
        AddText(element, "InteractionType", TouchInteractionTypeToText(*record.InteractionType));
    if (record.InteractionTypeTest)
        AddText(element, "InteractionTypeTest", TouchInteractionTypeToText(*record.InteractionTypeTest));
    if (record.EventType)
        AddText(element, "EventType", TouchEventTypeToText(*record.EventType));
    if (record.Tooltip)
        AddTooltip(element, *record.Tooltip);
    AddText(element, "Reverse", record.Reverse ? "1" : "0");
    return &element;
}

std::string Printed(const XMLDocument& document) {
    tinyxml2::XMLPrinter printer;
    document.Print(&printer);
    return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1};
}

using RecordsByAddress = std::map<PartAddress, const AnnotationRecord*>;

PartAddress AddressOf(const XMLElement& element) {
    bool unused = false;
    return ReadElement(element, unused).record.Address();
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

/// Removes from `expectations` those of parts that have an element. Of several elements for one part, the last counts.
void SetExpectations(XMLElement& root, RecordsByAddress& expectations) {
    for (XMLElement* element = root.LastChildElement("Override"); element && !expectations.empty();
         element = element->PreviousSiblingElement("Override"))
        if (const auto found = expectations.extract(AddressOf(*element)))
            SetExpectation(*element, TouchInteractionTypeToText(found.mapped()->InteractionTypeTest.value()));
}

void InsertBefore(XMLElement& element, XMLElement* added) {
    XMLNode& parent = *element.Parent();
    if (XMLNode* before = element.PreviousSibling())
        parent.InsertAfterChild(before, added);
    else
        parent.InsertFirstChild(added);
}

/// In the desktop tool's order: each before the first element of a later part.
void InsertRecords(XMLElement& root, const RecordsByAddress& records) {
    XMLDocument& document = *root.GetDocument();
    auto next = records.begin();
    for (XMLElement* element = root.FirstChildElement("Override"); element && next != records.end();
         element = element->NextSiblingElement("Override"))
        for (const PartAddress address = AddressOf(*element); next != records.end() && next->first < address; ++next)
            InsertBefore(*element, NewElement(document, *next->second));
    for (; next != records.end(); ++next)
        root.InsertEndChild(NewElement(document, *next->second));
}

} // namespace

AnnotationText ParseAnnotations(const std::string& xml) {
    AnnotationText text;
    XMLDocument document;
    if (document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS) {
        text.errorLine = static_cast<std::uint32_t>(document.ErrorLineNum());
        return text;
    }
    const XMLElement* root = document.RootElement();
    text.isXml = root != nullptr;
    for (const XMLNode* node = document.FirstChild(); node; node = node->NextSibling())
        text.saysMore |= node != root && !IsXmlDeclaration(*node);
    if (root)
        ReadRoot(*root, text);
    return text;
}

std::vector<AnnotationRecord> ReadAnnotations(const std::string& path) {
    std::vector<AnnotationRecord> records;
    for (AnnotationElement& element : ParseAnnotations(Utils::ReadFile(path)).elements)
        records.push_back(std::move(element.record));
    return records;
}

bool IsXml(const std::string& text) {
    return ParseAnnotations(text).isXml;
}

std::string AnnotationsToXml(const std::vector<AnnotationRecord>& records) {
    XMLDocument document;
    XMLElement* root = document.NewElement("Overrides");
    document.InsertEndChild(root);
    for (const AnnotationRecord& record : records)
        root->InsertEndChild(NewElement(document, record));
    return Printed(document);
}

std::string AddExpectations(const std::string& xml, const std::vector<AnnotationRecord>& expectations) {
    XMLDocument document;
    if (!xml.empty() && document.Parse(xml.data(), xml.size()) != tinyxml2::XML_SUCCESS)
        throw std::runtime_error("line " + std::to_string(document.ErrorLineNum()) +
                                 " is not well-formed XML; records can only be added to a well-formed file");
    if (!document.RootElement())
        document.InsertEndChild(document.NewElement("Overrides"));
    RecordsByAddress missing;
    for (const AnnotationRecord& expectation : expectations)
        missing[expectation.Address()] = &expectation;
    SetExpectations(*document.RootElement(), missing);
    InsertRecords(*document.RootElement(), missing);
    return Printed(document);
}

} // namespace CockpitModel
