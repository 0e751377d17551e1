#include "Batch/Reports/SheetHtml.h"

#include "Annotator/Preview/PartColours.h"
#include "Batch/Console.h"
#include "Batch/Reports/Html.h"
#include "Batch/Reports/TestReportStyle.h"

#include <cmath>
#include <cstdio>

namespace Batch {

namespace {

using CockpitModel::TouchInteractionTypeToText;

constexpr const char* kSheetStyle = R"css(body { max-width: none; }
.sheet { display: flex; gap: 1rem; align-items: flex-start; flex-wrap: wrap; }
.sheet img { position: sticky; top: .5rem; flex: 1 1 40rem; min-width: 0; max-width: 100%; height: auto; }
.sheet .scroll { flex: 1 1 34rem; }
.sheet td:first-child { min-width: 0; }
.sheet th, .sheet td { padding: .2rem .5rem; font-size: .85rem; }
.swatch { display: inline-block; width: .9em; height: .9em; margin-right: .4em; border: 1px solid #000; vertical-align: -.1em; }
.legend span { margin-right: 1.2rem; white-space: nowrap; }
@media print { .sheet img { position: static; } h2 { break-before: page; } }
)css";

/// As "#rrggbb".
std::string ColourText(const Utils::Vector3& colour) {
    const auto channel = [&](int i) { return static_cast<unsigned>(std::lround(colour[i] * 255.0f)); };
    char text[16];
    std::snprintf(text, sizeof(text), "#%02x%02x%02x", channel(0), channel(1), channel(2));
    return text;
}

std::string Swatch(const std::string& type) {
    for (const Annotator::LegendEntry& entry : Annotator::Legend(Annotator::PartColours::ByType))
        if (entry.text == type)
            return Element("span", "", "class=\"swatch\" style=\"background:" + ColourText(entry.colour) + "\"");
    return {};
}

std::string LegendLine() {
    std::string html;
    for (const Annotator::LegendEntry& entry : Annotator::Legend(Annotator::PartColours::ByType))
        html += Element("span", Swatch(entry.text) + entry.text);
    return Element("p", html, "class=\"legend\"") + "\n";
}

std::string TypeCell(const SheetPart& part) {
    const std::string type = TouchInteractionTypeToText(part.type);
    const std::string detected =
        part.type == part.detected ? "" : " (detected " + TouchInteractionTypeToText(part.detected) + ")";
    return Element("td", Swatch(type) + type + detected);
}

std::string TextCell(const std::string& text) {
    return Element("td", text.empty() ? "–" : Escaped(text), "class=\"rectangle\"");
}

std::string PartRow(const SheetPart& part) {
    const std::string line = part.object.empty() ? "–" : std::to_string(part.line);
    return Element("tr", Element("td", std::to_string(part.number), "class=\"number\"") +
                             Element("td", CockpitModel::ToText(part.address), "class=\"number\"") + TypeCell(part) +
                             TextCell(part.manipulator) + TextCell(part.names) + TextCell(part.object) +
                             Element("td", line, "class=\"number\"")) +
           "\n";
}

std::string PartTable(const std::vector<SheetPart>& parts) {
    std::string rows;
    for (const SheetPart& part : parts)
        rows += PartRow(part);
    return Table(HeadCells({{"Number", "number"},
                            {"Node,Part", "number"},
                            {"Type", ""},
                            {"Manipulator", ""},
                            {"Names", ""},
                            {"Object", ""},
                            {"Line", "number"}}),
                 rows);
}

std::string Picture(const CockpitSheet& sheet, const SheetPicture& picture, std::size_t index) {
    const std::string range =
        std::to_string(picture.parts.front().number) + " to " + std::to_string(picture.parts.back().number);
    const std::string title = "Picture " + std::to_string(index) + ": parts " + range;
    const std::string image =
        picture.png.empty()
            ? ""
            : PngElement(picture.png, title + " of " + sheet.displayName, sheet.size.width, sheet.size.height) + "\n";
    return Element("h2", title) + "\n<div class=\"sheet\">\n" + image + PartTable(picture.parts) + "</div>\n";
}

std::string Heading(const CockpitSheet& sheet) {
    std::size_t parts = 0;
    for (const SheetPicture& picture : sheet.pictures)
        parts += picture.parts.size();
    std::string html = Element("h1", Escaped(sheet.displayName)) + "\n" +
                       Element("p", Escaped(sheet.acfPath), "class=\"path\"") + "\n" +
                       Element("p", Counted(parts, "touchable part")) + "\n";
    for (const std::string& remark : sheet.remarks)
        html += Element("p", Escaped(remark), "class=\"warn\"") + "\n";
    return html + LegendLine();
}

} // namespace

std::string SheetHtml(const CockpitSheet& sheet) {
    std::string html =
        PageHead(Escaped(sheet.displayName)) + kTestReportStyle + kSheetStyle + kPageBody + Heading(sheet);
    for (std::size_t i = 0; i < sheet.pictures.size(); ++i)
        html += Picture(sheet, sheet.pictures[i], i + 1);
    return html + kPageTail;
}

} // namespace Batch
