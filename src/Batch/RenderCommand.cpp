#include "Annotator/PreviewPicture.h"
#include "Batch/AircraftSelection.h"
#include "Batch/Commands.h"
#include "Batch/Jobs.h"
#include "Rendering/OpenGL/EglContext.h"
#include "Rendering/OpenGL/GLFrameTarget.h"
#include "Utils/Images.h"
#include "Utils/SaveFile.h"

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <cmath>
#include <memory>
#include <numbers>

namespace Batch {

namespace {

constexpr std::uint32_t kSamples = 4;
constexpr std::uint32_t kLargestSide = 8192;

struct RenderOptions {
    std::string aircraft, out, size;
    std::string selected;
    std::vector<float> eye, look;
    std::vector<std::string> positions;
    bool hideTransparent = false;
};

[[noreturn]] void Refuse(const std::string& option, const std::string& got, const std::string& needed) {
    throw CommandError(kWrongUsage, option + " " + got + ": " + needed);
}

/// Two whole numbers around a separator.
std::pair<std::int32_t, std::int32_t> ReadPair(const std::string& option, const std::string& text, char separator,
                                               const std::string& needed) {
    std::int32_t first = 0, second = 0;
    const std::size_t at = text.find(separator);
    if (at == text.npos || !CLI::detail::lexical_cast(text.substr(0, at), first) ||
        !CLI::detail::lexical_cast(text.substr(at + 1), second))
        Refuse(option, text, needed);
    return {first, second};
}

Rendering::Size ReadSize(const std::string& text) {
    const std::string needed = "needs WIDTHxHEIGHT in pixels, from 1 to " + std::to_string(kLargestSide);
    const auto [width, height] = ReadPair("--size", text, 'x', needed);
    for (const std::int32_t side : {width, height})
        if (side < 1 || side > static_cast<std::int32_t>(kLargestSide))
            Refuse("--size", text, needed);
    return {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

/// A dataref may hold "=" in no place, its value stands behind the last one.
Annotator::PictureRequest::Position ReadPosition(const std::string& text) {
    Annotator::PictureRequest::Position position;
    const std::size_t at = text.rfind('=');
    if (at == text.npos || !CLI::detail::lexical_cast(text.substr(at + 1), position.fraction) ||
        !(position.fraction >= 0.0f && position.fraction <= 1.0f))
        Refuse("--position", text, "needs DATAREF=VALUE with a value from 0 to 1");
    position.dataref = text.substr(0, at);
    return position;
}

Annotator::PictureRequest ReadRequest(const RenderOptions& options) {
    constexpr float kRadians = std::numbers::pi_v<float> / 180.0f;
    Annotator::PictureRequest request;
    if (!options.size.empty())
        request.size = ReadSize(options.size);
    if (!options.eye.empty())
        request.eye = Utils::Vector3(options.eye[0], options.eye[1], options.eye[2]);
    if (!options.look.empty()) {
        request.yaw = options.look[0] * kRadians;
        request.pitch = options.look[1] * kRadians;
    }
    for (const std::string& position : options.positions)
        request.positions.push_back(ReadPosition(position));
    if (!options.selected.empty()) {
        const auto [node, part] = ReadPair("--select", options.selected, ',', "needs NODE,PART");
        request.selected = {node, part};
    }
    request.showTransparent = !options.hideTransparent;
    return request;
}

/// The picture as PNG. The device and everything on it are gone when it returns.
std::string RenderOne(const Sim::AircraftInfo& info, const Annotator::PictureRequest& request) {
    CockpitModel::GaugeRepository repository(boost::filesystem::current_path().string());
    const Annotator::OpenedAircraft opened = Annotator::OpenAircraft(info, repository);
    const Rendering::OpenGL::EglContext egl;
    const Rendering::Camera camera;
    Rendering::OpenGL::GLContext context(camera, 0);
    const Annotator::BuiltAircraft built = Annotator::BuildAircraft(opened);
    CockpitModel::AnnotationStore annotations(*built.sceneGraph);
    annotations.Read(CockpitModel::AnnotationPath(info));
    Rendering::OpenGL::GLFrameTarget target(context, kSamples);
    target.Resize(request.size);
    target.Begin({0.5f, 0.5f, 0.5f, 1.0f});
    DrawPreviewPicture(context, request, opened, built, annotations);
    return Utils::ToPng(target.Read());
}

ExitCode Render(const RenderOptions& options, Session& session) {
    const Annotator::PictureRequest request = ReadRequest(options);
    const Sim::AircraftList list = LoadInstallation(session.console);
    const Sim::AircraftInfo& info = SelectAircraft(list, options.aircraft);
    const std::string png = RunJob(NameOf(info), [&] { return RenderOne(info, request); });
    if (const Utils::SaveResult saved = Utils::SaveFile(session.CallersPath(options.out), png); !saved)
        throw CommandError(kNotWritten, saved.error);
    return kDone;
}

} // namespace

Action PrepareRender(CLI::App& app) {
    auto options = std::make_shared<RenderOptions>();
    app.add_option("AIRCRAFT", options->aircraft, "The aircraft")->type_name("")->required();
    app.add_option("--out", options->out, "The picture, a PNG file")->type_name("FILE")->required();
    app.add_option("--size", options->size, "Width and height in pixels; 1280x800 without it")->type_name("WxH");
    app.add_option("--eye", options->eye, "The camera's place in metres: right, up, back; the pilot's eye without it")
        ->type_name("X,Y,Z")
        ->delimiter(',')
        ->expected(3);
    app.add_option("--look", options->look, "The camera's turn in degrees: to the right, down")
        ->type_name("YAW,PITCH")
        ->delimiter(',')
        ->expected(2);
    app.add_option("--position", options->positions, "Moves the animations of a dataref to a place from 0 to 1")
        ->type_name("DATAREF=VALUE");
    app.add_option("--select", options->selected, "Shows a part as the selected one")->type_name("NODE,PART");
    app.add_flag("--hide-transparent", options->hideTransparent, "Leaves transparent parts out");
    return [options](Session& session) { return Render(*options, session); };
}

} // namespace Batch
