#include "CockpitModel/Panels/PanelSet.h"

#include "CockpitModel/Panels/ConfigFile.h"
#include "CockpitModel/Panels/PanelParts.h"
#include "CockpitModel/Panels/StreamNumbers.h"
#include "Utils/Text.h"

#include <algorithm>

namespace CockpitModel {

namespace {

using Utils::Vector2;

constexpr const char* kDefaultSize = "100,100";
/// Drag distance along x of a control that has an area for each direction.
constexpr float kPairDrag = 0.07f;

/// The area of a gauge on the texture.
struct GaugePlace {
    Vector2 nativeSize; ///< gauge pixels
    Vector2 a, b;       ///< corners, in texture coordinates
};

Vector2 ParseSize(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    std::string width, height;
    std::getline(stream, width, ',');
    stream >> height;
    return {FloatFromText(width), FloatFromText(height)};
}

std::shared_ptr<CallbackCode> MakeCode(const std::string& code) {
    auto callback = std::make_shared<CallbackCode>();
    callback->Code = code;
    return callback;
}

std::shared_ptr<MouseRectCallbackEvent> MakeCallback(const MouseAreaAction& action) {
    if (!action.Code.empty())
        return MakeCode(action.Code);
    if (action.EventID) {
        auto callback = std::make_shared<CallbackEventID>();
        callback->EventID = *action.EventID;
        return callback;
    }
    if (!action.Func)
        return nullptr;
    auto callback = std::make_shared<CallbackFSFunc>();
    callback->Func = *action.Func;
    callback->ArgumentA = action.ArgumentA;
    callback->ArgumentB = action.ArgumentB;
    return callback;
}

/// An entry with the rectangle and the texts of an area, whose parent is at `offset` in gauge pixels.
PanelEntry MakeEntry(const MouseArea& area, const Vector2& offset, const GaugePlace& place) {
    const Vector2 s = place.b - place.a, n = place.nativeSize;
    const float left = offset.x() + area.X, top = offset.y() + area.Y;
    const float right = std::min(left + area.Width, n.x()), bottom = std::min(top + area.Height, n.y());
    PanelEntry entry;
    entry.U = place.a.x() + (left / n.x()) * s.x();
    entry.V = place.a.y() + (top / n.y()) * s.y();
    entry.Width = place.a.x() + (right / n.x()) * s.x() - entry.U;
    entry.Height = place.a.y() + (bottom / n.y()) * s.y() - entry.V;
    entry.Rect.Tooltip = area.Tooltip;
    entry.Rect.TooltipID = area.TooltipID;
    entry.Rect.Text = area.Text;
    return entry;
}

void AddActionEntry(Panel& panel, PanelEntry entry, const MouseAreaAction& action) {
    entry.Rect.CallbackType = kFiresEvent;
    entry.Rect.MouseFlags = action.MouseFlags;
    entry.Rect.EventCallback = MakeCallback(action);
    if (!entry.Rect.EventCallback)
        return;
    ConvertWheelToJump(entry.Rect);
    panel.Entries.push_back(std::move(entry));
}

bool IsPair(const MouseArea& area) {
    return area.Children.size() == 2 && area.Children[0].Name == "Decrement" && area.Children[1].Name == "Increment";
}

/// Makes one stepping entry from the two directions of a control.
void AddPairEntry(Panel& panel, PanelEntry entry, const MouseArea& pair) {
    const MouseAreaAction decrement = pair.Children[0].Action.value_or(MouseAreaAction{});
    const MouseAreaAction increment = pair.Children[1].Action.value_or(MouseAreaAction{});
    auto jump = std::make_shared<CallbackJumpDragging>();
    jump->TwoCallbacks = true;
    jump->NegativeCallback = MakeCode(decrement.Code);
    jump->PositiveCallback = MakeCode(increment.Code);
    entry.Rect.CallbackType = kSteps;
    entry.Rect.MouseFlags = decrement.MouseFlags | increment.MouseFlags;
    entry.Rect.DragVector = Utils::Vector3(kPairDrag, 0.0f, 0.0f);
    entry.Rect.VariableCallback = std::move(jump);
    panel.Entries.push_back(std::move(entry));
}

void MapArea(Panel& panel, const MouseArea& area, const Vector2& offset, const GaugePlace& place) {
    if (area.Action)
        AddActionEntry(panel, MakeEntry(area, offset, place), *area.Action);
    else if (IsPair(area))
        return AddPairEntry(panel, MakeEntry(area, offset, place), area);
    for (const MouseArea& child : area.Children)
        MapArea(panel, child, offset + Vector2(area.X, area.Y), place);
}

void AddGauge(Panel& panel, const GaugeLine& line, const Vector2& panelSize, Gauge& gauge) {
    gauge.Position = {line.X, line.Y};
    if (line.Width && line.Height)
        gauge.Size = {*line.Width, *line.Height};
    const GaugePlace place{gauge.NativeSize, gauge.Position.cwiseQuotient(panelSize),
                           (gauge.Position + gauge.Size).cwiseQuotient(panelSize)};
    for (const MouseArea& area : gauge.MouseAreas)
        MapArea(panel, area, Vector2::Zero(), place);
}

std::string SizeText(const ConfigFile::Table& section) {
    for (const char* key : {"size_mm", "pixel_size"})
        if (const std::string* found = section.Find(key))
            return *found;
    return kDefaultSize;
}

std::unique_ptr<Panel> ReadPanel(const ConfigFile::Table& section, GaugeRepository& repository) {
    auto panel = std::make_unique<Panel>();
    if (const std::string* texture = section.Find("texture"))
        panel->Texture = Utils::ToLowerAscii(*texture);
    const Vector2 panelSize = ParseSize(SizeText(section));
    for (const auto& [key, value] : section) {
        if (!key.starts_with("gauge"))
            continue;
        const GaugeLine line = ParseGaugeLine(value);
        if (const auto gauge = repository.FindGauge(line.File, line.Name))
            AddGauge(*panel, line, panelSize, **gauge);
    }
    return panel;
}

} // namespace

void Panel::ProduceEntries(const NodePart& part, std::vector<PanelPartEntry>& out) const {
    for (const PanelEntry& entry : Entries)
        ClipEntryToPart(entry, part, out);
}

void PanelSet::Read(std::istream& stream, GaugeRepository& repository) {
    const ConfigFile config(stream, false);
    panels.clear();
    for (const auto& [name, section] : config.Sections()) {
        if (!name.starts_with("vcockpit"))
            continue;
        auto panel = ReadPanel(section, repository);
        const std::string texture = panel->Texture;
        panels[texture] = std::move(panel);
    }
}

Panel* PanelSet::Find(const std::string& textureName) const {
    const auto panel = panels.find(Utils::ToLowerAscii(textureName));
    return panel == panels.end() ? nullptr : panel->second.get();
}

} // namespace CockpitModel
