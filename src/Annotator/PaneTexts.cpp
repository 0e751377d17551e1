#include "Annotator/PaneTexts.h"

#include "Annotator/AnnotationSession.h"
#include "CockpitModel/SceneGraph.h"
#include "CockpitModel/Touch/Manipulator.h"
#include "Utils/RangeCheck.h"

#include <boost/algorithm/string/join.hpp>
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

std::string TreeRootText(const AnnotationSession& session) {
    if (session.Reading() == CockpitModel::Reading::Plain)
        return session.AircraftName();
    return session.AircraftName() + " (full reading" +
           (session.HasPlainAnnotations() ? std::string(", ") + kPlainExpectations : "") + ")";
}

std::string MatrixText(const Utils::Matrix4& matrix) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << std::setfill('0');
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const float value = matrix(row, column) + 0.0f; // prints negative zero as zero
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

std::string ManipulatorText(const NodePart& part) {
    const CockpitModel::Manipulator* const manipulator = part.manipulator;
    if (!manipulator)
        return {};
    std::ostringstream text;
    text << "Keyword: " << manipulator->keyword << "\nCursor: " << manipulator->cursor << "\nValues:";
    for (const float number : manipulator->numbers)
        text << ' ' << number;
    text << "\nNames: " << boost::algorithm::join(manipulator->names, " ") << "\nTooltip: " << manipulator->tooltip
         << "\nObject: " << Utils::At(part.node->graph->Model().objects, part.block.Object).name
         << "\nLine: " << manipulator->line << ", drawn in line " << part.block.SourceLine << '\n';
    return text.str();
}

std::string DetectedTooltipText(const NodePart& part) {
    return part.Rect() ? "Detected: " + part.Rect()->Tooltip : "Detected:";
}

} // namespace Annotator
