#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Preview/PreviewPicture.h"
#include "Batch/AircraftOptions.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Commands/CockpitSheetJob.h"
#include "Batch/Commands/PictureJobs.h"
#include "Batch/Jobs/Jobs.h"
#include "Batch/Jobs/ScopedSignalBlock.h"
#include "Rendering/Images.h"
#include "Rendering/OffScreen.h"
#include "Utils/Numbers.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <boost/filesystem/operations.hpp>
#include <cmath>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <string_view>

namespace Batch {

namespace {

using Annotator::PictureRequest;

constexpr std::uint32_t kGreatestSide = 8192; // pixels
constexpr float kRadiansPerDegree = std::numbers::pi_v<float> / 180.0f;

struct RenderOptions {
    PictureRequest picture;
    std::string file;
    bool sheet = false; ///< a page of the touchable parts instead of a picture
    SingleAircraftOptions aircraft;
};

/// Exactly `count` numbers with a separator between them.
template <typename Number, std::size_t count>
std::array<Number, count> ParseNumbers(const std::string& option, const std::string& text, char separator,
                                       const char* form) {
    std::array<Number, count> numbers{};
    std::string_view rest = text;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = i + 1 == count ? rest.size() : rest.find(separator);
        const auto number = end == rest.npos ? std::nullopt : Utils::ParseWhole<Number>(rest.substr(0, end));
        if (!number || !std::isfinite(static_cast<double>(*number)))
            throw CLI::ValidationError(option, "'" + text + "' does not have the form " + form);
        numbers[i] = *number;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return numbers;
}

Rendering::Size ParseSize(const std::string& text) {
    const auto [width, height] = ParseNumbers<std::uint32_t, 2>("--size", text, 'x', "WxH");
    if (width == 0 || height == 0 || width > kGreatestSide || height > kGreatestSide)
        throw CLI::ValidationError("--size", "'" + text + "' is not from 1x1 to " + std::to_string(kGreatestSide) +
                                                 "x" + std::to_string(kGreatestSide));
    return {width, height};
}

PictureRequest::Position ParsePosition(const std::string& text) {
    const std::size_t equals = text.rfind('='); // a dataref may contain one, a number does not
    if (equals == std::string::npos || equals == 0)
        throw CLI::ValidationError("--position", "'" + text + "' does not have the form DATAREF=VALUE");
    const auto [fraction] = ParseNumbers<float, 1>("--position", text.substr(equals + 1), ',', "a number from 0 to 1");
    if (fraction < 0.0f || fraction > 1.0f)
        throw CLI::ValidationError("--position", "'" + text + "' is not from 0 to 1");
    return {text.substr(0, equals), fraction};
}

void AddPictureOptions(CLI::App& app, PictureRequest& picture) {
    const auto add = [&app](const char* name, const char* type, const char* description, auto use) {
        return app.add_option_function<std::string>(name, use, description)->type_name(type);
    };
    add("--size", "WxH", "Image size in pixels (default: 1280x800)",
        [&picture](const std::string& text) { picture.size = ParseSize(text); });
    add("--eye", "X,Y,Z", "Camera position in metres, z towards the tail (default: the pilot's eye)",
        [&picture](const std::string& text) {
            const auto [x, y, z] = ParseNumbers<float, 3>("--eye", text, ',', "X,Y,Z");
            picture.eye = Utils::Vector3(x, y, z);
        });
    add("--look", "YAW,PITCH", "Degrees to the right and down (default: straight ahead)",
        [&picture](const std::string& text) {
            const auto [yaw, pitch] = ParseNumbers<float, 2>("--look", text, ',', "YAW,PITCH");
            picture.look = Utils::Vector2(yaw, pitch) * kRadiansPerDegree;
        });
    add("--select", "NODE,PART", "Show this part as selected", [&picture](const std::string& text) {
        picture.selected = CockpitModel::ParsePartAddress(text);
        if (!picture.selected)
            throw CLI::ValidationError("--select", "'" + text + "' does not have the form NODE,PART");
    });
    app.add_option_function<std::vector<std::string>>(
           "--position",
           [&picture](const std::vector<std::string>& texts) {
               for (const std::string& text : texts)
                   picture.positions.push_back(ParsePosition(text));
           },
           "Set the animations of a dataref to a position from 0 to 1; may be repeated")
        ->type_name("DATAREF=VALUE")
        ->allow_extra_args(false);
    app.add_flag("--fit", picture.fit, "Move the camera so that the cockpit, or the part of --select, fills the image")
        ->excludes(app.get_option("--eye"));
    app.add_flag_callback(
        "--hide-transparent", [&picture] { picture.showTransparent = false; }, "Leave out transparent parts");
}

void AddSheetOption(CLI::App& app, RenderOptions& options, CLI::Option* out) {
    const auto use = [&options, out](const std::string& file) {
        options.file = file;
        options.sheet = true;
        out->required(false);
    };
    CLI::Option* const sheet =
        app.add_option_function<std::string>("--sheet", use,
                                             "HTML page to write instead: all touchable parts, in pictures and tables")
            ->type_name("FILE");
    for (const char* other : {"--out", "--eye", "--look", "--select", "--position", "--fit", "--hide-transparent"})
        sheet->excludes(app.get_option(other));
}

/// The first byte of the drawing process's result; after it come the bytes of the image or page, or an error in the
/// request.
enum AnswerKind : char {
    kPicture = 'P',
    kEmptyPicture = 'E',
    kWrongRequest = 'W',
    kSheet = 'S',
    kSheetWithoutPictures = 'N',
};

/// True for an image that shows only the background, whose colour devices round up or down.
bool IsEmpty(const Rendering::MemBitmap& picture) {
    const auto& pixels = picture.Pixels();
    const std::uint32_t red = pixels.front() & 255;
    return (red == 127 || red == 128) && (pixels.front() & 0xFFFFFF) == red * 0x010101 &&
           std::ranges::count(pixels, pixels.front()) == std::ssize(pixels);
}

Annotator::LoadedAircraft LoadToDraw(const Sim::AircraftInfo& info, const Annotator::LoadOptions& load) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository, load.reading);
    if (load.reading == CockpitModel::Reading::Plain && !opened.cockpit->IsValid())
        throw std::runtime_error("the folder of the .acf file contains no cockpit object");
    Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened, load);
    return {std::move(opened), std::move(built)};
}

JobOutput RenderPicture(const PictureRequest& request, const Annotator::LoadedAircraft& aircraft,
                        const CockpitModel::AnnotationStore& annotations) {
    try {
        const Rendering::MemBitmap picture =
            Rendering::DrawOffScreen(request.size, Annotator::kCanvasColour, [&](Rendering::Context& context) {
                Annotator::DrawPreviewPicture(context, request, aircraft.opened, aircraft.built, annotations);
            });
        return {char{IsEmpty(picture) ? kEmptyPicture : kPicture} + Rendering::ToPng(picture),
                aircraft.built.model->remarks};
    } catch (const std::invalid_argument& error) {
        return char{kWrongRequest} + std::string(error.what());
    }
}

JobOutput RenderSheet(const Sim::AircraftInfo& info, Rendering::Size size, const Annotator::LoadedAircraft& aircraft,
                      const CockpitModel::AnnotationStore& annotations) {
    const CockpitSheet sheet = MakeCockpitSheet(info, aircraft, annotations, size);
    const bool complete =
        std::ranges::none_of(sheet.pictures, [](const SheetPicture& picture) { return picture.png.empty(); });
    std::vector<std::string> remarks = aircraft.built.model->remarks;
    remarks.insert(remarks.end(), sheet.remarks.begin(), sheet.remarks.end());
    return {char{complete ? kSheet : kSheetWithoutPictures} + SheetHtml(sheet), remarks};
}

JobOutput RenderOne(const Sim::AircraftInfo& info, const RenderOptions& options) {
    const Annotator::LoadedAircraft aircraft = LoadToDraw(info, options.aircraft.load);
    CockpitModel::AnnotationStore annotations(*aircraft.built.sceneGraph);
    annotations.Read(CockpitModel::FindAnnotations(info, options.aircraft.load.reading).path);
    return options.sheet ? RenderSheet(info, options.picture.size, aircraft, annotations)
                         : RenderPicture(options.picture, aircraft, annotations);
}

ExitCode Render(const RenderOptions& options, Session& session) {
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft.name);
    RequirePictureData();
    const std::string answer = RunJob(info, session.console, options.aircraft.limits.timeout);
    const std::string_view bytes = std::string_view(answer).substr(1);
    if (answer[0] == kWrongRequest)
        throw CommandError(kWrongUsage, NameOf(info) + ": " + std::string(bytes));
    if (answer[0] == kEmptyPicture)
        session.console.Message(NameOf(info) + ": no part is visible" + (options.picture.fit ? "" : "; try --fit"));
    if (const auto saved = SaveWithSignalsHeld(session.ResolveArgument(options.file), bytes); !saved)
        throw CommandError(kNotWritten, saved.error);
    return answer[0] == kSheetWithoutPictures ? kAircraftFailed : kDone;
}

} // namespace

Action PrepareRender(CLI::App& app) {
    auto options = std::make_shared<RenderOptions>();
    CLI::Option* const out = app.add_option("--out", options->file, "PNG file to write")->type_name("FILE")->required();
    AddPictureOptions(app, options->picture);
    AddSheetOption(app, *options, out);
    AddFullOption(app, options->aircraft.load);
    app.add_flag_callback(
           "--bare", [options] { options->picture.showSurroundings = false; },
           "Leave out the cabin around the controls")
        ->needs(app.get_option("--full"));
    AddAircraftOptions(app, options->aircraft);
    return {[options](Session& session) { return Render(*options, session); },
            [options](const Sim::AircraftInfo& info, const std::string&) {
                RequirePictureData();
                return RenderOne(info, *options);
            }};
}

} // namespace Batch
