#include "Batch/Commands/PictureJobs.h"

#include "Annotator/DataFiles.h"
#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/PartPictures.h"
#include "Annotator/Preview/PictureMarks.h"
#include "Batch/Command.h"
#include "Batch/Reports/Html.h"
#include "Batch/Reports/TestReport.h"
#include "Rendering/GeometryLoader.h"
#include "Rendering/Images.h"
#include "Rendering/OffScreen.h"
#include "Utils/Platform.h"

#include <boost/filesystem/operations.hpp>

namespace Batch {

namespace {

constexpr float kFilled = 1.0f / 3.0f;
constexpr Annotator::PixelColour kFrameColour{255, 255, 255};

std::string DrawPart(Rendering::OffScreen& device, Annotator::PartPictures& pictures, CockpitModel::NodePart& part) {
    const std::vector<Utils::Vector3> corners = pictures.Corners(part);
    const auto camera = pictures.Frame(corners, kTestPicture, kFilled);
    pictures.Select(&part);
    Rendering::MemBitmap image =
        device.Draw(Annotator::kCanvasColour, [&](Rendering::Context& context) { pictures.Draw(context, camera); });
    if (const auto box = Annotator::PixelBoxOf(corners, camera.ViewProjection(), kTestPicture))
        Annotator::DrawFrame(image, *box, kFrameColour);
    return Base64(Rendering::ToPng(image, kTestPictureBytes / 4 * 3));
}

} // namespace

void RequirePictureData() {
    Rendering::SetFallbackDataFolder(Annotator::ProgramDataFolder(Utils::Platform::ProgramPath()).parent_path());
    if (!boost::filesystem::exists(Rendering::FindDataFile(Annotator::kMarkerMeshFile)))
        throw CommandError(kWrongUsage,
                           std::string("cannot find ") + Annotator::kMarkerMeshFile +
                               " in the installation; copy the program's folder QVRA into the installation folder");
}

std::vector<std::string> DrawFailedParts(const Annotator::LoadedAircraft& aircraft,
                                         const CockpitModel::AnnotationStore& annotations,
                                         Annotator::AircraftResult& tests) {
    try {
        Rendering::OffScreen device(kTestPicture);
        Annotator::PartPictures pictures(aircraft.opened, aircraft.built, annotations);
        for (Annotator::PartResult& test : tests.parts)
            if (!test.passed)
                test.picture =
                    DrawPart(device, pictures, *aircraft.built.sceneGraph->FindPart({test.NodeId, test.PartId}));
        return {};
    } catch (const std::exception& error) {
        return {std::string("the report lacks pictures of failed parts: ") + error.what()};
    }
}

} // namespace Batch
