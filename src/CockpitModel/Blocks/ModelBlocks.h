#pragma once

#include "CockpitModel/Blocks/RiffBlock.h"
#include "Utils/LinearAlgebra.h"

#include <cstdint>
#include <string>

namespace CockpitModel {

struct MouseRect;

/// The primitive kinds of a draw call: the values of RiffBlockPART::Type that give triangles.
enum PrimitiveKind : std::uint32_t { kTriangleList = 1, kTriangleFan = 2, kTriangleStrip = 3 };
/// The only blend kind with which a part counts as opaque.
inline constexpr std::int32_t kOpaqueBlend = 2;

/// A vertex of a pool, in the model's left-handed axes, metres; texture coordinates as the OBJ gives them.
struct Vertex {
    float x = 0, y = 0, z = 0;
    float nx = 0, ny = 0, nz = 0;
    float u = 0, v = 0;
};

/// The fields of a material that anything reads or prints.
struct Material {
    std::int32_t Flags = 0;
    std::int32_t TextureDiffuse = 0; ///< index into the texture names; negative for none
    std::int32_t Detail = 0;
    float Scale = 0;
    std::int32_t BlendKind = 0;
    float Alpha = 0; ///< a part counts as opaque from 0.9 on
};

/// Maps a node to its matrix.
struct AnimationNode {
    std::uint32_t Word = 0; ///< nothing reads it
    std::uint32_t MatrixIndex = 0;
};

/// A row of the node table: indices of other nodes, negative for none, and a byte offset into the animation map, which
/// is a multiple of the size of an AnimationNode.
struct SceneGraphElement {
    std::int16_t Child = -1;
    std::int16_t Peer = -1;
    std::int16_t MapOffset = -1;
    std::int16_t Unused = 0;
};

class RiffBlockMATE final : public RiffBlockWithChildObject<Material> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
    void PrintChild(const Material& child, std::string indent, std::ostream& stream) const override;
};

class RiffBlockTEXT final : public RiffBlockWithChildObject<std::string> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
    void PrintChild(const std::string& child, std::string indent, std::ostream& stream) const override;
};

class RiffBlockVERT final : public RiffBlockWithChildObject<Vertex> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
    void PrintChild(const Vertex& child, std::string indent, std::ostream& stream) const override;
};

class RiffBlockIND3 final : public RiffBlockWithChildObject<std::uint32_t> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
};

class RiffBlockTRAN final : public RiffBlockWithChildObject<Utils::Matrix4> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
    void PrintChild(const Utils::Matrix4& child, std::string indent, std::ostream& stream) const override;
};

class RiffBlockAMAP final : public RiffBlockWithChildObject<AnimationNode> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
};

class RiffBlockSCEN final : public RiffBlockWithChildObject<SceneGraphElement> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
};

/// Node to animation: one entry per node, negative for none.
class RiffBlockSGAL final : public RiffBlockWithChildObject<std::int16_t> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
};

/// Node to visibility; nothing reads it.
class RiffBlockSGVL final : public RiffBlockWithChildObject<std::uint16_t> {
public:
    void Print(std::string indent, std::ostream& stream) const override;
};

/// One draw call.
class RiffBlockPART final : public RiffBlock {
public:
    void Print(std::string indent, std::ostream& stream) const override;

    std::uint32_t Type = 0; ///< a PrimitiveKind; any other value draws nothing
    std::uint32_t Node = 0;
    std::uint32_t MaterialIndex = 0;
    std::uint32_t VertexBlock = 0;
    std::uint32_t VertexOffset = 0; ///< added to every index of this part
    std::uint32_t VertexCount = 0;  ///< nothing reads it
    std::uint32_t IndexOffset = 0;
    std::uint32_t IndexCount = 0;
    std::int32_t MouseRectIndex = -1;
    MouseRect* mouseRect = nullptr; ///< owned by the model's shared list
    std::uint32_t IndexBlock = 0;
    std::uint32_t Object = 0;           ///< the file that it came from: index in ModelData::objects
    std::uint32_t SourceLine = 0;       ///< line of the "TRIS" in that file, from 1; 0 for none
    std::uint32_t ManipulatorLine = 0;  ///< line of the manipulator in force there; 0 for none
    bool NotDrawn = false;              ///< by the simulator: clicks reach it, but nothing is seen
    std::int32_t ManipulatorIndex = -1; ///< in ModelData::manipulators; -1 for none, as always in the plain reading
};

/// One key of an animation track.
class RiffBlockXANK final : public RiffBlock {
public:
    void Print(std::string indent, std::ostream& stream) const override;

    float Time = 0; ///< 0 to the animation's length
    bool IsTranslation = false;
    Utils::Vector3 Translation = Utils::Vector3::Zero();        ///< if IsTranslation
    Utils::Quaternion Rotation = Utils::Quaternion::Identity(); ///< otherwise
    std::string Text;
};

class RiffBlockVisibilityInfo final : public RiffBlock {
public:
    void Print(std::string indent, std::ostream& stream) const override;

    bool Visible = true;
    std::string FirstText, SecondText;
};

} // namespace CockpitModel
