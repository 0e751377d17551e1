#include "CockpitModel/XPlane/XPObjReader.h"

#include "CockpitModel/XPlane/FullLines.h"
#include "CockpitModel/XPlane/NumberText.h"
#include "Utils/Files.h"
#include "Utils/LineBlocks.h"
#include "Utils/Text.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace CockpitModel {

namespace {

constexpr std::uint32_t kPanelTextureIndex = 0;
constexpr std::uint32_t kRoot = 0;
/// The draw calls of an object may copy datarefs of this many bytes plus twice the object's size, far above real
/// objects. Prevents a long name shared by many draw calls from exhausting memory.
constexpr std::size_t kNameBytes = 64 << 20;

/// Separators of the values after a keyword: a stream's white space without the line feed.
bool IsSpace(char c) {
    return Utils::IsBlank(c) || c == '\r' || c == '\v' || c == '\f';
}

/// One line, read from left to right: the keyword, then the values in order. From the first missing or malformed value
/// on, numbers read as 0 and words as empty. The text ends with a line feed, so scans need no end check.
class Line {
public:
    Line(const char* place, const char* textEnd) : at(place), end(textEnd) {}

    /// The next run of bytes other than spaces, tabs and the line's end.
    std::string_view Token() {
        while (Utils::IsBlank(*at))
            ++at;
        const char* start = at;
        while (!Utils::IsBlank(*at) && *at != '\n' && !(*at == '\r' && at[1] == '\n'))
            ++at;
        return {start, at};
    }

    bool Read(std::int32_t& value) {
        const NumberRead<std::int32_t> number = good ? ReadInteger(SkipSpace(at), end) : NumberRead<std::int32_t>();
        good = number.next;
        at = good ? number.next : at;
        value = number.value;
        return good;
    }

    std::int32_t Integer() {
        std::int32_t value = 0;
        Read(value);
        return value;
    }

    template <std::size_t N>
    std::array<float, N> Floats() {
        std::array<float, N> values{};
        const char* place = at; // a local copy stays in a register, `at` does not
        for (std::size_t i = 0; i < N && good; ++i) {
            const NumberRead<float> number = ReadFloat(SkipSpace(place), end);
            good = number.next;
            place = good ? number.next : place;
            values[i] = number.value;
        }
        at = place;
        return values;
    }

    float Float() { return Floats<1>()[0]; }

    std::string_view Word() {
        at = SkipSpace(at);
        const char* start = at;
        while (good && !IsSpace(*at) && *at != '\n')
            ++at;
        good = at != start;
        return {start, at};
    }

    /// What stands behind the values that were read.
    std::string_view Rest() const { return {at, NextLine() - 1}; }

    const char* NextLine() const {
        return static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at))) + 1;
    }

private:
    static const char* SkipSpace(const char* place) {
        while (IsSpace(*place))
            ++place;
        return place;
    }

    const char* at;
    const char* end;
    bool good = true;
};

/// Adds lines to the data and keeps the state in force.
class Reader {
public:
    Reader(XPObjData& target, Reading howToRead, std::size_t size)
        : data(target), reading(howToRead), full(target), textSize(size), mostNameBytes(kNameBytes + 2 * size) {
        data.textures.emplace_back(kPanelTexture);
        data.animNodes.emplace_back();
    }

    void ReadLines(const char* text, const char* end);

    void PointCounts(Line& line);
    void Texture(Line& line);
    void Vertex(Line& line);
    void Index(Line& line);
    void TenIndices(Line& line);
    void Triangles(Line& line);
    void EnableDrawing(Line&) { inForce.drawEnabled = true; }
    void DisableDrawing(Line&) { inForce.drawEnabled = false; }
    void UsePanelTexture(Line&) { panelTexture = true; }
    void UseOwnTexture(Line&) { panelTexture = false; }
    void BeginBlock(Line&);
    void EndBlock(Line&);
    void Translation(Line& line);
    void Rotation(Line& line);
    void NoManipulator(Line&);
    void Toggle(Line& line);
    void DragAxis(Line& line);

private:
    XPObjAnimNode& CurrentNode() { return data.animNodes[inForce.animNode]; }
    static XPObjManip ManipulatorValues(Line& line);
    void CountName(std::string& name);
    void CountNames(const Manipulator& manipulator);

    XPObjData& data;
    Reading reading;
    FullLines full;
    XPObjDrawCall inForce; ///< the next draw call without its range; its node is that of the innermost open block
    std::uint32_t ownTexture = kXPObjNone;
    bool panelTexture = false;
    std::uint32_t lineNumber = 0;
    std::size_t textSize;
    std::size_t mostNameBytes, nameBytes = 0; ///< of the draw calls' datarefs
};

struct Keyword {
    std::string_view name;
    void (Reader::*read)(Line& line);
};

/// Searched from the top, so the most frequent keywords come first.
constexpr Keyword kKeywords[] = {
    {"VT", &Reader::Vertex},
    {"IDX10", &Reader::TenIndices},
    {"IDX", &Reader::Index},
    {"TRIS", &Reader::Triangles},
    {"ANIM_begin", &Reader::BeginBlock},
    {"ANIM_end", &Reader::EndBlock},
    {"ANIM_trans", &Reader::Translation},
    {"ANIM_rotate", &Reader::Rotation},
    {"ATTR_cockpit", &Reader::UsePanelTexture},
    {"ATTR_no_cockpit", &Reader::UseOwnTexture},
    {"ATTR_draw_enable", &Reader::EnableDrawing},
    {"ATTR_draw_disable", &Reader::DisableDrawing},
    {"ATTR_manip_none", &Reader::NoManipulator},
    {"ATTR_manip_toggle", &Reader::Toggle},
    {"ATTR_manip_drag_axis", &Reader::DragAxis},
    {"ATTR_manip_drag_xy", &Reader::NoManipulator},
    {"ATTR_manip_command", &Reader::NoManipulator},
    {"ATTR_manip_command_axis", &Reader::NoManipulator},
    {"TEXTURE", &Reader::Texture},
    {"POINT_COUNTS", &Reader::PointCounts},
};

void Reader::ReadLines(const char* text, const char* end) {
    while (text != end) {
        ++lineNumber;
        Line line(text, end);
        const std::string_view name = line.Token();
        if (reading == Reading::Full && name.starts_with('A')) {
            full.Read(name, line.Rest(), lineNumber, inForce.animNode);
            inForce.manipulator = full.InForce();
        }
        for (const Keyword& keyword : kKeywords) {
            if (keyword.name == name) {
                (this->*keyword.read)(line);
                break;
            }
        }
        text = line.NextLine();
    }
}

/// Only reserves memory, and no more than a text of this size can need, because the counts may be wrong.
void Reader::PointCounts(Line& line) {
    if (!data.vertices.empty() || !data.indices.empty())
        return;
    const auto capacity = [&](std::size_t leastBytes) {
        const auto count = static_cast<std::size_t>(std::max(line.Integer(), 0));
        return std::min(count, textSize / leastBytes);
    };
    data.vertices.reserve(capacity(sizeof "VT 0 0 0 0 0 0 0 0"));
    line.Integer(); // lines
    line.Integer(); // lights
    data.indices.reserve(capacity(sizeof "0"));
}

void Reader::Texture(Line& line) {
    const std::string_view path = line.Token();
    if (path.empty()) {
        if (data.emptyTextureLine == 0)
            data.emptyTextureLine = lineNumber;
        return;
    }
    ownTexture = static_cast<std::uint32_t>(data.textures.size());
    data.textures.emplace_back(path);
}

void Reader::Vertex(Line& line) {
    const auto [x, y, z, nx, ny, nz, u, v] = line.Floats<8>();
    data.vertices.push_back({x, y, z, nx, ny, nz, u, v});
}

void Reader::Index(Line& line) {
    data.indices.push_back(line.Integer());
}

void Reader::TenIndices(Line& line) {
    std::int32_t index = 0;
    for (int i = 0; i < 10 && line.Read(index); ++i)
        data.indices.push_back(index);
}

void Reader::Triangles(Line& line) {
    XPObjDrawCall& call = data.drawCalls.emplace_back(inForce);
    call.offset = line.Integer();
    call.count = line.Integer();
    call.texture = panelTexture ? kPanelTextureIndex : ownTexture;
    call.line = lineNumber;
    for (std::optional<XPObjManip>* manip : {&call.toggle, &call.drag})
        if (*manip)
            CountName((*manip)->dataref);
    if (call.manipulator != kXPObjNone)
        CountNames(data.manipulators[call.manipulator]);
}

/// The rectangles of the parts copy the names; those of a toggle and a drag are counted as such.
void Reader::CountNames(const Manipulator& manipulator) {
    const bool counted = manipulator.keyword == "toggle" || manipulator.keyword == "drag_axis";
    for (std::string name : manipulator.names)
        if (!counted)
            CountName(name);
}

void Reader::CountName(std::string& name) {
    const std::size_t bytes = nameBytes + name.size();
    if (bytes <= mostNameBytes) {
        nameBytes = bytes;
        return;
    }
    if (!data.nameExcess)
        data.nameExcess = {lineNumber, bytes, mostNameBytes};
    std::string().swap(name); // an assignment would keep the memory
}

void Reader::BeginBlock(Line&) {
    const auto index = static_cast<std::uint32_t>(data.animNodes.size());
    CurrentNode().children.push_back(index);
    XPObjAnimNode& node = data.animNodes.emplace_back();
    node.index = index;
    node.parent = inForce.animNode;
    inForce.animNode = index;
}

void Reader::EndBlock(Line&) {
    if (inForce.animNode != kRoot)
        inForce.animNode = CurrentNode().parent;
}

void Reader::Translation(Line& line) {
    XPObjAnimStep& step = CurrentNode().steps.emplace_back();
    step.translation = line.Floats<6>();
    step.value1 = line.Float();
    step.value2 = line.Float();
    step.dataref = line.Word();
}

void Reader::Rotation(Line& line) {
    XPObjAnimStep& step = CurrentNode().steps.emplace_back();
    step.rotation = line.Floats<5>();
    step.value1 = line.Float();
    step.value2 = line.Float();
    step.dataref = line.Word();
}

void Reader::NoManipulator(Line&) {
    inForce.toggle.reset();
    inForce.drag.reset();
    inForce.manipLine = 0;
}

void Reader::Toggle(Line& line) {
    NoManipulator(line);
    line.Word(); // the cursor
    inForce.toggle = ManipulatorValues(line);
    inForce.manipLine = lineNumber;
}

void Reader::DragAxis(Line& line) {
    NoManipulator(line);
    line.Word();      // the cursor
    line.Floats<3>(); // the direction
    inForce.drag = ManipulatorValues(line);
    inForce.manipLine = lineNumber;
}

XPObjManip Reader::ManipulatorValues(Line& line) {
    XPObjManip manip;
    manip.value1 = line.Float();
    manip.value2 = line.Float();
    manip.dataref = line.Word();
    return manip;
}

} // namespace

void ReadXPObj(std::istream& stream, XPObjData& data) {
    ReadXPObj(stream, data, Reading::Plain);
}

void ReadXPObj(std::istream& stream, XPObjData& data, Reading reading) {
    static_assert(kNumberPadding <= Utils::LineBlocks::kPadding);
    Reader reader(data, reading, Utils::SizeLeft(stream));
    Utils::LineBlocks blocks(stream);
    for (std::string_view block; blocks.Next(block);)
        reader.ReadLines(block.data(), block.data() + block.size());
}

} // namespace CockpitModel
