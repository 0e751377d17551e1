#include "Batch/Commands/CockpitSheetJob.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/PartGroups.h"
#include "Annotator/Preview/PartPictures.h"
#include "Annotator/Preview/PictureMarks.h"
#include "Batch/Reports/Html.h"
#include "Rendering/Images.h"
#include "Rendering/OffScreen.h"

#include <boost/algorithm/string/join.hpp>
#include <cmath>
#include <utility>

namespace Batch {

namespace {

using Annotator::PartPictures;
using CockpitModel::NodePart;
using Utils::Vector3;

constexpr float kFilled = 0.85f; // the numbers need some of the picture's border

struct TouchablePart {
    const NodePart* part = nullptr;
    std::vector<Vector3> corners;
    Vector3 middle = Vector3::Zero(); ///< of the corners' box
};

/// The middle of the points' box; zero if there are none.
Vector3 MiddleOf(const std::vector<Vector3>& points) {
    if (points.empty())
        return Vector3::Zero();
    Vector3 least = points.front(), greatest = least;
    for (const Vector3& point : points) {
        least = least.cwiseMin(point);
        greatest = greatest.cwiseMax(point);
    }
    return (least + greatest) / 2.0f;
}

std::vector<TouchablePart> FindTouchable(const Annotator::LoadedAircraft& aircraft, const PartPictures& pictures) {
    std::vector<TouchablePart> found;
    for (const auto& node : aircraft.built.sceneGraph->Nodes())
        for (const auto& part : node->parts) {
            if (!part->Rect() && !IsYoke(part->InteractionType))
                continue;
            TouchablePart touchable{part.get(), pictures.Corners(*part)};
            touchable.middle = MiddleOf(touchable.corners);
            found.push_back(std::move(touchable));
        }
    return found;
}

void DescribeManipulator(const NodePart& part, SheetPart& row) {
    if (part.manipulator) {
        row.manipulator = part.manipulator->keyword;
        row.names = boost::algorithm::join(part.manipulator->names, " ");
        return;
    }
    const CockpitModel::MouseRect* const rect = part.Rect();
    if (!rect)
        return;
    if (const auto* toggle = dynamic_cast<const CockpitModel::CallbackXPToggle*>(rect->EventCallback.get())) {
        row.manipulator = "toggle";
        row.names = toggle->Var;
    } else if (const auto* drag = dynamic_cast<const CockpitModel::CallbackXPVariable*>(rect->VariableCallback.get())) {
        row.manipulator = "drag_axis";
        row.names = drag->Var;
    } else {
        row.manipulator = rect->Text;
    }
}

SheetPart RowOf(const NodePart& part, const CockpitModel::AnnotationStore& annotations, std::uint32_t number) {
    SheetPart row;
    row.number = number;
    row.address = {part.node->index, part.id};
    row.type = annotations.Evaluate(part).interactionType;
    row.detected = part.InteractionType;
    DescribeManipulator(part, row);
    if (part.block.SourceLine != 0) {
        const CockpitModel::ModelData& model = part.node->graph->Model();
        row.object = model.objects.empty() ? model.sourcePath : model.objects.at(part.block.Object).name;
        row.line = part.block.SourceLine;
    }
    return row;
}

Annotator::PixelColour ToPixelColour(const Vector3& colour) {
    const auto channel = [&](int i) { return static_cast<std::uint8_t>(std::lround(colour[i] * 255.0f)); };
    return {channel(0), channel(1), channel(2)};
}

/// Draws the groups of one aircraft.
class SheetPainter {
public:
    SheetPainter(PartPictures& aircraftPictures, const CockpitModel::AnnotationStore& store, Rendering::Size imageSize)
        : pictures(aircraftPictures), annotations(store), size(imageSize), device(imageSize) {
        pictures.ShowColours(Annotator::PartColours::ByType);
    }
    ~SheetPainter() { pictures.ReleaseGpuResources(); }

    std::string Draw(const std::vector<const TouchablePart*>& group, std::uint32_t firstNumber) {
        std::vector<Vector3> corners;
        for (const TouchablePart* part : group)
            corners.insert(corners.end(), part->corners.begin(), part->corners.end());
        const auto camera = pictures.Frame(corners, size, kFilled);
        Rendering::MemBitmap image =
            device.Draw(Annotator::kCanvasColour, [&](Rendering::Context& context) { pictures.Draw(context, camera); });
        Annotator::DrawNumbers(image, Marks(group, firstNumber, camera.ViewProjection()));
        return Base64(Rendering::ToPng(image));
    }

private:
    std::vector<Annotator::NumberMark> Marks(const std::vector<const TouchablePart*>& group, std::uint32_t number,
                                             const Utils::Matrix4& viewProjection) const {
        std::vector<Annotator::NumberMark> marks;
        for (const TouchablePart* touchable : group) {
            const auto box = Annotator::PixelBoxOf(touchable->corners, viewProjection, size);
            if (box)
                marks.push_back({number, Annotator::MiddleOf(*box), ColourOf(*touchable->part)});
            ++number;
        }
        return marks;
    }

    Annotator::PixelColour ColourOf(const NodePart& part) const {
        return ToPixelColour(Annotator::ColourOf(Annotator::PartColours::ByType, part, annotations.Evaluate(part)));
    }

    PartPictures& pictures;
    const CockpitModel::AnnotationStore& annotations;
    const Rendering::Size size;
    Rendering::OffScreen device;
};

std::vector<std::vector<const TouchablePart*>> Groups(const std::vector<TouchablePart>& parts) {
    std::vector<Vector3> places;
    for (const TouchablePart& part : parts)
        places.push_back(part.middle);
    std::vector<std::vector<const TouchablePart*>> groups;
    for (const std::vector<std::size_t>& indices : Annotator::GroupByPlace(places)) {
        auto& group = groups.emplace_back();
        for (const std::size_t index : indices)
            group.push_back(&parts[index]);
    }
    return groups;
}

} // namespace

CockpitSheet MakeCockpitSheet(const Sim::AircraftInfo& info, const Annotator::LoadedAircraft& aircraft,
                              const CockpitModel::AnnotationStore& annotations, Rendering::Size size) {
    PartPictures pictures(aircraft.opened, aircraft.built, annotations);
    const std::vector<TouchablePart> parts = FindTouchable(aircraft, pictures);
    const auto groups = Groups(parts);
    CockpitSheet sheet{info.displayName, info.acfPath, {}, size, {}};
    for (std::uint32_t number = 1; const auto& group : groups) {
        SheetPicture& picture = sheet.pictures.emplace_back();
        for (const TouchablePart* part : group)
            picture.parts.push_back(RowOf(*part->part, annotations, number++));
    }
    const Annotator::GroupLimits limits;
    if (const std::size_t most = limits.members * limits.groups; parts.size() > most)
        sheet.remarks.push_back("there are more than " + std::to_string(most) +
                                " touchable parts, so that pictures have more than " + std::to_string(limits.members));
    try {
        SheetPainter painter(pictures, annotations, size);
        for (std::size_t i = 0; i < groups.size(); ++i)
            sheet.pictures[i].png = painter.Draw(groups[i], sheet.pictures[i].parts.front().number);
    } catch (const std::exception& error) {
        sheet.remarks.push_back(std::string("the page lacks pictures: ") + error.what());
    }
    return sheet;
}

} // namespace Batch
