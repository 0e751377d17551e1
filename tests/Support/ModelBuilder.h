#pragma once

#include "CockpitModel/AircraftCockpit.h"
#include "CockpitModel/ModelData.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace Support {

using Corner = std::array<float, 3>;

/// The triangle (0,0,z) (1,0,z) (0,1,z).
inline std::vector<Corner> TriangleAt(float z) {
    return {{0, 0, z}, {1, 0, z}, {0, 1, z}};
}

inline CockpitModel::RiffBlockXANK TranslationKey(float time, float x, float y, float z) {
    CockpitModel::RiffBlockXANK key;
    key.Time = time;
    key.IsTranslation = true;
    key.Translation = {x, y, z};
    return key;
}

inline CockpitModel::RiffBlockXANK RotationKey(float time, const Utils::Quaternion& rotation) {
    CockpitModel::RiffBlockXANK key;
    key.Time = time;
    key.Rotation = rotation;
    return key;
}

using Track = std::vector<CockpitModel::RiffBlockXANK>;

inline Track Slide(float x, float y, float z) {
    return {TranslationKey(0, 0, 0, 0), TranslationKey(100, x, y, z)};
}

inline CockpitModel::ModelAnimation Animation(const std::string& name, std::vector<Track> tracks) {
    CockpitModel::ModelAnimation animation;
    animation.name = name;
    animation.tracks = std::move(tracks);
    animation.length = 100.0f;
    return animation;
}

/// Builds a model like those of the OBJ converter: node 0 is the root, every further node is added below a given one,
/// and each part is a triangle list of its own corners.
class ModelBuilder {
public:
    ModelBuilder() {
        model.vertexBlocks.emplace_back();
        model.indexBlocks.emplace_back();
        Texture("panel.png");
        AddRow();
    }

    int Node(int parent) {
        const int index = AddRow();
        auto& elements = model.sceneElements.Children;
        std::int16_t* link = &elements[static_cast<std::size_t>(parent)].Child;
        while (*link >= 0)
            link = &elements[static_cast<std::size_t>(*link)].Peer;
        *link = static_cast<std::int16_t>(index);
        return index;
    }

    int Node(int parent, CockpitModel::ModelAnimation animation) {
        const int index = Node(parent);
        model.animationLinks.Children.back() = static_cast<std::int16_t>(index);
        model.animations.back() = std::move(animation);
        return index;
    }

    int Node(int parent, const std::string& animation, Track track) {
        return Node(parent, Animation(animation, {std::move(track)}));
    }

    int Texture(const std::string& name) {
        CockpitModel::Material material;
        material.TextureDiffuse = static_cast<std::int32_t>(model.textures.Children.size());
        material.BlendKind = CockpitModel::kOpaqueBlend;
        material.Alpha = 1.0f;
        model.materials.Children.push_back(material);
        model.textures.Children.push_back(name);
        return material.TextureDiffuse;
    }

    CockpitModel::RiffBlockPART& Part(int node, const std::vector<Corner>& corners, std::uint32_t type = 1) {
        auto& indices = model.indexBlocks[0].Children;
        auto& vertices = model.vertexBlocks[0].Children;
        CockpitModel::RiffBlockPART part;
        part.Type = type;
        part.Node = static_cast<std::uint32_t>(node);
        part.IndexOffset = static_cast<std::uint32_t>(indices.size());
        part.IndexCount = static_cast<std::uint32_t>(corners.size());
        for (const Corner& corner : corners) {
            indices.push_back(static_cast<std::uint32_t>(vertices.size()));
            CockpitModel::Vertex vertex;
            vertex.x = corner[0], vertex.y = corner[1], vertex.z = corner[2];
            vertex.u = corner[0], vertex.v = corner[1];
            vertices.push_back(vertex);
        }
        model.parts.push_back(part);
        return model.parts.back();
    }

    /// Adds a rectangle with a callback type to the last part.
    CockpitModel::MouseRect& Rect(std::uint32_t callbackType) {
        model.mouseRects.push_back(std::make_shared<CockpitModel::MouseRect>());
        model.mouseRects.back()->CallbackType = callbackType;
        model.parts.back().mouseRect = model.mouseRects.back().get();
        model.parts.back().MouseRectIndex = static_cast<std::int32_t>(model.mouseRects.size()) - 1;
        return *model.mouseRects.back();
    }

    CockpitModel::ModelData model;

private:
    int AddRow() {
        const auto index = model.sceneElements.Children.size();
        CockpitModel::SceneGraphElement element;
        element.MapOffset = static_cast<std::int16_t>(8 * index);
        model.sceneElements.Children.push_back(element);
        model.animationMap.Children.push_back({0, static_cast<std::uint32_t>(index)});
        model.matrices.Children.push_back(Utils::Matrix4::Identity());
        model.visibilityInfos.emplace_back();
        model.animationLinks.Children.push_back(-1);
        model.animations.emplace_back();
        return static_cast<int>(index);
    }
};

/// A cockpit that returns copies of a model.
struct ModelCockpit final : CockpitModel::AircraftCockpit {
    explicit ModelCockpit(CockpitModel::ModelData source = {}) : model(std::move(source)) {}
    bool IsValid() const override { return isValid; }
    std::unique_ptr<CockpitModel::ModelData> LoadModel() const override {
        return std::make_unique<CockpitModel::ModelData>(model);
    }
    CockpitModel::SurroundingObjects FindSurroundings() const override { return surroundings; }

    CockpitModel::ModelData model;
    CockpitModel::SurroundingObjects surroundings;
    bool isValid = true;
};

} // namespace Support
