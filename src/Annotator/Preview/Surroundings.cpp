#include "Annotator/Preview/Surroundings.h"

#include "Annotator/Preview/SingleView.h"
#include "Utils/Timer.h"

#include <utility>

namespace Annotator {

namespace {

using Utils::Matrix4;

constexpr double kSecondsPerFrame = 0.02; ///< for meshes
/// Of what has no texture yet.
const Utils::Vector3 kGreyFirst{0.15f, 0.15f, 0.15f}, kGreySecond{0.35f, 0.35f, 0.35f};

/// False if the box lies beyond one side of the picture.
bool MayBeSeen(const Utils::Extent& box, const Matrix4& clip) {
    int right = 0, left = 0, above = 0, below = 0, behind = 0, beyond = 0;
    for (int corner = 0; corner < 8; ++corner) {
        const Utils::Vector4 at =
            Utils::Vector4(corner & 1 ? box.greatest.x() : box.least.x(), corner & 2 ? box.greatest.y() : box.least.y(),
                           corner & 4 ? box.greatest.z() : box.least.z(), 1.0f) *
            clip;
        right += at.x() > at.w();
        left += at.x() < -at.w();
        above += at.y() > at.w();
        below += at.y() < -at.w();
        behind += at.z() < 0;
        beyond += at.z() > at.w();
    }
    return right < 8 && left < 8 && above < 8 && below < 8 && behind < 8 && beyond < 8;
}

} // namespace

Surroundings::Surroundings(CockpitModel::SurroundingObjects surroundings) : found(std::move(surroundings)) {}

void Surroundings::ReleaseGpuResources() {
    reader.reset();
    meshes.clear();
    textures.clear();
    started = false;
}

void Surroundings::Start(Rendering::Context& context) {
    if (!meshes.empty() && !context.IsGeometryValid(meshes.front().geometry.get()))
        ReleaseGpuResources();
    if (!std::exchange(started, true))
        reader.emplace(found);
}

void Surroundings::Complete(Rendering::Context& context) {
    Start(context);
    while (reader) {
        reader->Wait();
        TakeSome(context);
    }
}

void Surroundings::TakeSome(Rendering::Context& context) {
    if (!reader)
        return;
    try {
        Utils::Timer timer;
        bool took = false;
        while (timer.Elapsed() < kSecondsPerFrame && TakeMesh(context))
            took = true;
        if (!took)
            TakePicture(context);
    } catch (...) { // what was taken is lost
        ReleaseGpuResources();
        throw;
    }
    if (reader->IsEmpty())
        reader.reset();
}

bool Surroundings::TakeMesh(Rendering::Context& context) {
    std::optional<CockpitModel::SurroundingMesh> mesh = reader->TakeMesh();
    if (!mesh)
        return false;
    meshes.push_back({context.CreateGeometry(mesh->vertices), std::move(mesh->texture), mesh->extent});
    return true;
}

void Surroundings::TakePicture(Rendering::Context& context) {
    if (const std::optional<SurroundingPicture> picture = reader->TakePicture())
        textures[picture->path] = {context.CreateBitmap(picture->pixels), picture->transparent};
}

const Surroundings::Texture* Surroundings::TextureOf(const Mesh& mesh) const {
    const auto texture = textures.find(mesh.texture);
    return texture == textures.end() ? nullptr : &texture->second;
}

void Surroundings::Draw(Rendering::Context& context, const Matrix4& view, const Matrix4& projection) {
    Start(context);
    TakeSome(context);
    Rendering::GeometryDrawParams params = SingleViewParams();
    const Utils::Vector3 litFirst = params.firstColour, litSecond = params.secondColour;
    const Matrix4 clip = view * projection;
    for (const Mesh& mesh : meshes) {
        if (!MayBeSeen(mesh.extent, clip))
            continue;
        const Texture* const texture = TextureOf(mesh);
        params.firstColour = texture ? litFirst : kGreyFirst;
        params.secondColour = texture ? litSecond : kGreySecond;
        params.blend = texture && texture->transparent;
        context.DrawGeometry(Matrix4::Identity(), view, projection, *mesh.geometry,
                             texture ? texture->bitmap.get() : nullptr, nullptr, params);
    }
}

} // namespace Annotator
