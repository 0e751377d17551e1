#include "CockpitModel/ScenePartBuilder.h"

#include "CockpitModel/NoMaterial.h"
#include "CockpitModel/NodePart.h"
#include "CockpitModel/Panels/PanelParts.h"
#include "CockpitModel/Panels/PanelSet.h"
#include "Utils/RangeCheck.h"

#include <string_view>

namespace CockpitModel {

namespace {

using Rendering::GeometryVertex;
using Soup = std::vector<GeometryVertex>;
using Nodes = std::vector<std::unique_ptr<Node>>;

/// Draw calls may repeat the same texture name, so that a small file could exhaust memory with copies.
constexpr std::uint64_t kMostNameBytes = 1 << 28;

/// "<file>(<line>): <what>", without file and line if unknown.
std::string AtSource(const ModelData& model, const RiffBlockPART& block, const std::string& what) {
    std::string place = block.Object < model.objects.size() ? model.objects[block.Object].path : model.sourcePath;
    if (block.SourceLine != 0)
        place += "(" + std::to_string(block.SourceLine) + ")";
    return place.empty() ? what : place + ": " + what;
}

/// The element of a list at a block's index; the error message names the index and the kind.
template <typename List, typename Index>
auto& NamedEntry(List& list, Index index, const ModelData& model, const RiffBlockPART& block, const char* kind) {
    if (index >= list.size())
        throw Utils::OutOfRange(AtSource(model, block,
                                         "TRIS needs " + std::string(kind) + " " + std::to_string(index) +
                                             " (counted from 0), but the model has " + std::to_string(list.size())));
    return list[index];
}

GeometryVertex ToGeometryVertex(const Vertex& vertex) {
    GeometryVertex result;
    result.position = {vertex.x, vertex.y, vertex.z};
    result.normal = {vertex.nx, vertex.ny, vertex.nz};
    result.texture = result.secondTexture = {vertex.u, vertex.v};
    return result;
}

std::size_t IndexPoolSize(const ModelData& model, const RiffBlockPART& block) {
    return block.IndexBlock < model.indexBlocks.size() ? model.indexBlocks[block.IndexBlock].Children.size() : 0;
}

/// Rejects a range outside the pool before memory is allocated for it.
void CheckIndexRange(const ModelData& model, const RiffBlockPART& block, std::size_t poolSize) {
    const std::uint64_t end = std::uint64_t{block.IndexOffset} + block.IndexCount;
    if (block.IndexCount == 0 || end <= poolSize)
        return;
    throw Utils::OutOfRange(AtSource(model, block,
                                     "TRIS " + std::to_string(static_cast<std::int32_t>(block.IndexOffset)) + " " +
                                         std::to_string(static_cast<std::int32_t>(block.IndexCount)) +
                                         " reaches beyond the " + std::to_string(poolSize) + " indices of the file"));
}

Soup ExpandIndices(const ModelData& model, const RiffBlockPART& block) {
    const auto& indices = NamedEntry(model.indexBlocks, block.IndexBlock, model, block, "index block").Children;
    const auto& pool = NamedEntry(model.vertexBlocks, block.VertexBlock, model, block, "vertex block").Children;
    CheckIndexRange(model, block, indices.size());
    Soup raw;
    raw.reserve(block.IndexCount);
    for (std::uint32_t i = 0; i < block.IndexCount; ++i) {
        const std::uint32_t vertex = indices[block.IndexOffset + i] + block.VertexOffset;
        raw.push_back(ToGeometryVertex(NamedEntry(pool, vertex, model, block, "vertex")));
    }
    return raw;
}

/// Triangles of a fan or a strip: each further corner makes one with the previous corner and the first corner (fan) or
/// the one before the previous (strip). The winding of strips is not alternated.
Soup Unroll(const Soup& raw, bool fan) {
    Soup soup;
    for (std::size_t i = 2; i < raw.size(); ++i)
        soup.insert(soup.end(), {raw[fan ? 0 : i - 2], raw[i - 1], raw[i]});
    return soup;
}

Soup MakeTriangles(Soup raw, std::uint32_t type) {
    if (type == kTriangleList)
        return raw;
    if (type == kTriangleFan || type == kTriangleStrip)
        return Unroll(raw, type == kTriangleFan);
    return {};
}

const Material& FindMaterial(const ModelData& model, const RiffBlockPART& block) {
    const auto& materials = model.materials.Children;
    if (block.MaterialIndex < materials.size())
        return materials[block.MaterialIndex];
    const std::uint32_t empty = model.emptyTextureLine;
    const std::string cause = empty != 0 && empty < block.SourceLine
                                  ? "TEXTURE of line " + std::to_string(empty) + " names no file"
                                  : "TRIS before any TEXTURE line";
    throw NoMaterial(AtSource(model, block, cause + ", so the part has no material"));
}

void AddToNode(Node& node, std::unique_ptr<NodePart> part) {
    part->node = &node;
    part->id = static_cast<std::int32_t>(node.parts.size());
    if (part->Rect())
        node.clickableParts.push_back(part.get());
    node.parts.push_back(std::move(part));
}

/// Empty if the block has no texture; invalid indices are rejected when the part is built.
std::string_view TextureNameOf(const ModelData& model, const RiffBlockPART& block) {
    const auto& materials = model.materials.Children;
    if (block.MaterialIndex >= materials.size())
        return {};
    const std::int32_t texture = materials[block.MaterialIndex].TextureDiffuse;
    const auto& names = model.textures.Children;
    return std::cmp_less(texture, names.size()) && texture >= 0 ? names[std::size_t(texture)] : std::string_view();
}

/// Adds a separate part for each panel rectangle that the base part shows.
void AddPanelParts(Node& node, NodePart& base, const PanelSet* panels) {
    base.panel = panels ? panels->Find(base.textureName) : nullptr;
    if (!base.panel)
        return;
    std::vector<PanelPartEntry> entries;
    base.panel->ProduceEntries(base, entries);
    for (PanelPartEntry& entry : entries) {
        auto part = std::make_unique<NodePart>();
        part->vertices = std::move(entry.vertices);
        part->panelRect = std::move(entry.rect);
        part->block.mouseRect = &part->panelRect;
        part->textureIndex = base.textureIndex;
        part->textureName = base.textureName;
        part->panel = base.panel;
        part->material = base.material;
        AddToNode(node, std::move(part));
    }
}

/// None for a draw call that makes no triangle.
void AddParts(const ModelData& model, const RiffBlockPART& block, const PanelSet* panels, const Nodes& nodes) {
    Node& node = *NamedEntry(nodes, block.Node, model, block, "node");
    Soup soup = MakeTriangles(ExpandIndices(model, block), block.Type);
    if (soup.size() < 3)
        return;
    auto part = std::make_unique<NodePart>();
    part->vertices = std::move(soup);
    part->block = block;
    part->material = &FindMaterial(model, block);
    if (block.ManipulatorIndex >= 0)
        part->manipulator = &Utils::At(model.manipulators, block.ManipulatorIndex);
    if (part->material->TextureDiffuse >= 0) {
        part->textureIndex = part->material->TextureDiffuse;
        part->textureName =
            NamedEntry(model.textures.Children, std::uint32_t(*part->textureIndex), model, block, "texture");
        AddPanelParts(node, *part, panels);
    }
    AddToNode(node, std::move(part));
}

} // namespace

void CheckPartSizes(const ModelData& model) {
    std::uint64_t vertices = 0, nameBytes = 0;
    for (const RiffBlockPART& block : model.parts) {
        const std::uint64_t end = std::uint64_t{block.IndexOffset} + block.IndexCount;
        if (end <= IndexPoolSize(model, block)) // otherwise CheckIndexRange throws
            vertices += block.IndexCount;
        nameBytes += TextureNameOf(model, block).size();
        if (vertices > kMostDrawnVertices)
            throw Utils::OutOfRange(AtSource(model, block,
                                             "the TRIS lines up to this one draw " + std::to_string(vertices) +
                                                 " vertices; a cockpit draws at most " +
                                                 std::to_string(kMostDrawnVertices)));
        if (nameBytes > kMostNameBytes)
            throw Utils::OutOfRange(AtSource(model, block,
                                             "the texture names of the TRIS lines up to this one take " +
                                                 std::to_string(nameBytes) + " bytes; a cockpit takes at most " +
                                                 std::to_string(kMostNameBytes)));
    }
}

void BuildParts(const ModelData& model, const PanelSet* panels, const Nodes& nodes) {
    for (const RiffBlockPART& block : model.parts)
        AddParts(model, block, panels, nodes);
}

} // namespace CockpitModel
