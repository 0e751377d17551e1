#include "CockpitModel/XPlane/XPObjReader.h"

#include "CockpitModel/XPlane/FullLines.h"
#include "CockpitModel/XPlane/Manipulators.h"
#include "CockpitModel/XPlane/ObjKeywords.h"
#include "CockpitModel/XPlane/ObjLine.h"
#include "CockpitModel/XPlane/ObjValues.h"
#include "Utils/Files.h"
#include "Utils/LineBlocks.h"

#include <algorithm>
#include <string_view>

namespace CockpitModel {

namespace {

constexpr std::uint32_t kPanelTextureIndex = 0;
constexpr std::uint32_t kRoot = 0;
/// The draw calls of an object may copy datarefs of this many bytes plus twice the object's size, far above real
/// objects. Prevents a long name shared by many draw calls from exhausting memory.
constexpr std::size_t kNameBytes = 64 << 20;

/// Adds lines to the data and keeps the state in force.
class Reader {
public:
    Reader(XPObjData& target, Reading howToRead, std::size_t size)
        : data(target), reading(howToRead), full(target), textSize(size), mostNameBytes(kNameBytes + 2 * size) {
        data.textures.emplace_back(kPanelTexture);
        data.animNodes.emplace_back();
    }

    void ReadLines(const char* text, const char* end);

    void PointCounts(ObjLine& line);
    void Texture(ObjLine& line);
    void Vertex(ObjLine& line);
    void Index(ObjLine& line);
    void TenIndices(ObjLine& line);
    void Triangles(ObjLine& line);
    void EnableDrawing(ObjLine&) { inForce.drawEnabled = true; }
    void DisableDrawing(ObjLine&) { inForce.drawEnabled = false; }
    void UsePanelTexture(ObjLine&) { panelTexture = true; }
    void UseOwnTexture(ObjLine&) { panelTexture = false; }
    void BeginBlock(ObjLine&);
    void EndBlock(ObjLine&);
    void Translation(ObjLine& line);
    void Rotation(ObjLine& line);

private:
    void ReadManipulatorLine(std::string_view name, ObjLine& line);
    XPObjAnimNode& CurrentNode() { return data.animNodes[inForce.animNode]; }
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
    void (Reader::*read)(ObjLine& line);
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
    {"TEXTURE", &Reader::Texture},
    {"POINT_COUNTS", &Reader::PointCounts},
};

const Keyword* FindKeyword(std::string_view name) {
    for (const Keyword& keyword : kKeywords)
        if (keyword.name == name)
            return &keyword;
    return nullptr;
}

void Reader::ReadLines(const char* text, const char* end) {
    while (text != end) {
        ++lineNumber;
        ObjLine line(text, end);
        const std::string_view name = line.Token();
        if (reading == Reading::Full && name.starts_with('A')) {
            full.Read(name, line.Rest(), lineNumber, inForce.animNode);
            inForce.manipulator = full.InForce();
            inForce.shown = full.Shown();
        }
        if (const Keyword* const keyword = FindKeyword(name))
            (this->*keyword->read)(line);
        else if (name.starts_with(kManipulatorPrefix))
            ReadManipulatorLine(name.substr(kManipulatorPrefix.size()), line);
        text = line.NextLine();
    }
}

/// Only reserves memory, and no more than a text of this size can need, because the counts may be wrong.
void Reader::PointCounts(ObjLine& line) {
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

void Reader::Texture(ObjLine& line) {
    const std::string_view path = line.Token();
    if (path.empty()) {
        if (data.emptyTextureLine == 0)
            data.emptyTextureLine = lineNumber;
        return;
    }
    ownTexture = static_cast<std::uint32_t>(data.textures.size());
    data.textures.emplace_back(path);
}

void Reader::Vertex(ObjLine& line) {
    const auto [x, y, z, nx, ny, nz, u, v] = line.Floats<NumberCount("VT")>();
    data.vertices.push_back({x, y, z, nx, ny, nz, u, v});
}

void Reader::Index(ObjLine& line) {
    data.indices.push_back(line.Integer());
}

void Reader::TenIndices(ObjLine& line) {
    std::int32_t index = 0;
    for (std::size_t i = 0; i < NumberCount("IDX10") && line.Read(index); ++i)
        data.indices.push_back(index);
}

void Reader::Triangles(ObjLine& line) {
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
    const bool counted = SetsPlain(manipulator.plain);
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

void Reader::BeginBlock(ObjLine&) {
    const auto index = static_cast<std::uint32_t>(data.animNodes.size());
    CurrentNode().children.push_back(index);
    XPObjAnimNode& node = data.animNodes.emplace_back();
    node.index = index;
    node.parent = inForce.animNode;
    inForce.animNode = index;
}

void Reader::EndBlock(ObjLine&) {
    if (inForce.animNode != kRoot)
        inForce.animNode = CurrentNode().parent;
}

void Reader::Translation(ObjLine& line) {
    CurrentNode().steps.push_back(ReadTranslation(line));
}

void Reader::Rotation(ObjLine& line) {
    CurrentNode().steps.push_back(ReadRotation(line));
}

void Reader::ReadManipulatorLine(std::string_view name, ObjLine& line) {
    const ManipulatorKeyword* const keyword = FindManipulatorKeyword(name);
    if (!keyword || keyword->plain == PlainEffect::Leaves)
        return;
    inForce.toggle.reset();
    inForce.drag.reset();
    inForce.manipLine = 0;
    if (keyword->plain == PlainEffect::Clears)
        return;
    (keyword->plain == PlainEffect::SetsToggle ? inForce.toggle : inForce.drag) = ReadPlainManipulator(line, *keyword);
    inForce.manipLine = lineNumber;
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
