#include "Annotator/PaneTexts.h"

#include "CockpitModel/Panels/PanelSet.h"
#include "CockpitModel/SceneGraph.h"
#include "Utils/RangeCheck.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace Annotator {

namespace {

using CockpitModel::ModelAnimation;
using CockpitModel::ModelData;
using CockpitModel::Node;
using CockpitModel::NodePart;

constexpr std::size_t kLabelLength = 60;

AnimData RowOf(const Node& node, ModelData& model) {
    AnimData row{.node = &node, .label = std::to_string(node.index) + " - "};
    if (node.animationIndex) {
        row.animation = &Utils::At(model.animations, *node.animationIndex);
        row.label += row.animation->name.substr(0, kLabelLength);
    } else {
        row.label += "No Animation";
    }
    return row;
}

std::string AnimationText(const ModelAnimation& animation) {
    std::ostringstream text;
    text << "Param: " << animation.name << "\nRawData: " << animation.text
         << "\nTransforms:\nLength:" << animation.length << "\n";
    for (const auto& track : animation.tracks) {
        text << "\tTransform:\n";
        for (const auto& key : track)
            text << "\t\t" << key.Text << " at " << key.Time << "\n";
    }
    return text.str();
}

/// Truncated towards zero. Files may hold any float, a texture coordinate that is no number included.
int Truncated(float value) {
    constexpr float kLimit = 1e6f;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

UvPoint Scaled(float u, float v, int side) {
    return {Truncated(static_cast<float>(side) * u), Truncated(static_cast<float>(side) * v)};
}

} // namespace

std::vector<AnimData> AnimationRows(const NodePart& part, ModelData& model) {
    std::vector<AnimData> rows;
    for (const Node* node = part.node; node; node = node->parent)
        rows.push_back(RowOf(*node, model));
    return rows;
}

std::string AnimationRowText(const AnimData& row) {
    return row.animation ? AnimationText(*row.animation)
                         : "Node Local Matrix:\n" + MatrixText(row.node->localMatrix) + "\n";
}

int SliderPercent(const ModelAnimation& animation) {
    return Truncated(animation.position * 100.0f);
}

void MoveAnimations(ModelData& model, const ModelAnimation& selected, int percent) {
    for (ModelAnimation& animation : model.animations) {
        if (animation.name == selected.name)
            animation.position = static_cast<float>(percent) / 100.0f * animation.length / 100.0f;
    }
}

std::string MatrixText(const Utils::Matrix4& matrix) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << std::setfill('0');
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const float value = matrix(row, column) + 0.0f; // a negative zero reads as zero
            text << (value < 0 ? "" : "+") << std::setw(4) << value << ' ';
        }
        text << '\n';
    }
    return text.str();
}

std::string PartIdText(const NodePart& part) {
    return "ID: (" + ToText(CockpitModel::PartAddress{part.node->index, part.id}) + ")";
}

std::string FileOffsetText(const NodePart& part) {
    return "File Offset: " + std::to_string(part.block.FileOffset);
}

std::string MaterialText(const NodePart& part) {
    if (!part.material)
        return "Material:";
    return "MaterialTexId: " + std::to_string(part.textureIndex.value_or(-1)) +
           " TexId: " + std::to_string(part.material->TextureDiffuse) + " Tex: " + part.textureName;
}

std::string PartInfoText(const NodePart& part) {
    if (!part.Rect())
        return {};
    std::ostringstream text;
    text << "Balance Factor: " << part.BalanceFactor << "\nParent Matrix:\n"
         << MatrixText(part.node->localMatrix) << '\n';
    part.Rect()->Dump(text, "");
    return text.str();
}

std::string DetectedTooltipText(const NodePart& part) {
    return part.Rect() ? "Detected: " + part.Rect()->Tooltip : "Detected:";
}

std::vector<std::array<UvPoint, 3>> UvTriangles(const NodePart& part, int side) {
    std::vector<std::array<UvPoint, 3>> triangles;
    triangles.reserve(part.vertices.size() / 3);
    const auto point = [&](std::size_t i) {
        return Scaled(part.vertices[i].texture.x(), part.vertices[i].texture.y(), side);
    };
    for (std::size_t i = 0; i + 2 < part.vertices.size(); i += 3)
        triangles.push_back({{point(i), point(i + 1), point(i + 2)}});
    return triangles;
}

std::vector<UvRectangle> UvPanelRectangles(const NodePart& part, int side) {
    std::vector<UvRectangle> rectangles;
    if (!part.panel)
        return rectangles;
    for (const auto& entry : part.panel->Entries)
        rectangles.push_back({Scaled(entry.U, entry.V, side), Scaled(entry.Width, entry.Height, side)});
    return rectangles;
}

} // namespace Annotator
