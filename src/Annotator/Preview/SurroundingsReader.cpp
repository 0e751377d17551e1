#include "Annotator/Preview/SurroundingsReader.h"

#include "CockpitModel/ScenePartBuilder.h"
#include "Logging/Logger.h"
#include "Rendering/BitmapFile.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace Annotator {

namespace {

using CockpitModel::SurroundingMesh;
using CockpitModel::SurroundingShape;

/// More would read little faster from a disk.
constexpr unsigned kMostWorkers = 8;
/// Two panels at one place that differ by no more, such as one in two languages, show the same; metres.
constexpr float kSamePlace = 0.05f;

bool Agree(const Utils::Extent& a, const Utils::Extent& b) {
    return ((a.least - b.least).cwiseAbs().array() <= kSamePlace).all() &&
           ((a.greatest - b.greatest).cwiseAbs().array() <= kSamePlace).all();
}

bool IsTransparent(const Rendering::MemBitmap& bitmap) {
    constexpr std::uint32_t opaque = 0xFF000000;
    return std::ranges::any_of(bitmap.Pixels(), [](std::uint32_t pixel) { return pixel < opaque; });
}

} // namespace

SurroundingsReader::SurroundingsReader(CockpitModel::SurroundingObjects found)
    : surroundings(std::move(found)), shapes(surroundings.objects.size()), extents(surroundings.objects.size()) {
    for (const std::string& remark : surroundings.remarks)
        Logging::Logger::Get().Log(HERE, remark);
    if (!surroundings.objects.empty())
        StartWorkers();
}

SurroundingsReader::~SurroundingsReader() {
    {
        const std::lock_guard lock(mutex);
        stop = true;
    }
    changed.notify_all();
    for (std::thread& thread : threads)
        thread.join();
}

void SurroundingsReader::StartWorkers() {
    const std::size_t cores = std::clamp(std::thread::hardware_concurrency(), 1u, kMostWorkers);
    const std::size_t count = std::min(cores, surroundings.objects.size());
    const std::lock_guard lock(mutex); // a worker that ends must not be the last while others start
    try {
        for (; workers < count; ++workers)
            threads.emplace_back([this] { Work(); });
    } catch (const std::system_error& error) { // no thread is left; those that run read everything
        Logging::Logger::Get().Log(HERE, std::string("A worker for the surroundings cannot start: ") + error.what());
    }
}

void SurroundingsReader::Work() {
    ReadObjects();
    bool isLast = false;
    {
        const std::lock_guard lock(mutex);
        isLast = workers == 1;
        workers -= isLast ? 0 : 1;
    }
    if (!isLast)
        return;
    ReadPictures();
    {
        const std::lock_guard lock(mutex);
        workers = 0;
    }
    changed.notify_all();
}

void SurroundingsReader::ReadObjects() {
    const auto& objects = surroundings.objects;
    for (std::size_t i = nextObject++; i < objects.size() && !stop; i = nextObject++)
        TakeOver(i, CockpitModel::ReadSurroundingShape(objects[i], surroundings.aircraftFolder, stop));
}

/// Objects can be read in another order than that in which they are drawn.
void SurroundingsReader::TakeOver(std::size_t index, SurroundingShape shape) {
    {
        const std::lock_guard lock(mutex);
        extents[index] = shape.extent;
        shapes[index] = std::move(shape);
        for (; added < shapes.size() && shapes[added]; ++added)
            AddInOrder(added);
    }
    changed.notify_all();
}

void SurroundingsReader::AddInOrder(std::size_t index) {
    const std::string reason = stop ? std::string() : ReasonToLeaveOut(index);
    SurroundingShape shape = std::move(*shapes[index]);
    shapes[index].emplace();
    if (!reason.empty())
        Logging::Logger::Get().Log(HERE, surroundings.objects[index].name + " is not drawn: " + reason);
    if (stop || !reason.empty() || shape.meshes.empty())
        return;
    drawn.push_back(index);
    vertexCount += shape.vertexCount;
    for (SurroundingMesh& mesh : shape.meshes) {
        if (!mesh.texture.empty() && knownTextures.insert(mesh.texture).second)
            textures.push_back(mesh.texture);
        meshes.push_back(std::move(mesh));
    }
}

std::string SurroundingsReader::ReasonToLeaveOut(std::size_t index) const {
    const SurroundingShape& shape = *shapes[index];
    if (!shape.problem.empty())
        return shape.problem;
    if (vertexCount + shape.vertexCount > CockpitModel::kMostDrawnVertices)
        return "with it the surroundings have more than " + std::to_string(CockpitModel::kMostDrawnVertices) +
               " vertices";
    const auto& objects = surroundings.objects;
    const auto stands = std::ranges::find_if(drawn, [&](std::size_t other) {
        return objects[other].place == objects[index].place && Agree(extents[other], extents[index]);
    });
    if (objects[index].mayBeHidden && stands != drawn.end())
        return objects[*stands].name + " is in the same place";
    return {};
}

void SurroundingsReader::ReadPictures() {
    for (std::size_t i = 0; !stop; ++i) {
        std::unique_lock lock(mutex);
        if (i == textures.size())
            return;
        const std::string path = textures[i];
        lock.unlock();
        auto pixels = Rendering::ReadBitmapFile(path, stop);
        if (!pixels)
            continue;
        const bool transparent = IsTransparent(*pixels);
        lock.lock();
        changed.wait(lock, [this] { return stop || !picture; });
        picture = SurroundingPicture{path, std::move(*pixels), transparent};
        lock.unlock();
        changed.notify_all();
    }
}

std::optional<SurroundingMesh> SurroundingsReader::TakeMesh() {
    const std::lock_guard lock(mutex);
    if (meshes.empty())
        return std::nullopt;
    std::optional<SurroundingMesh> mesh = std::move(meshes.front());
    meshes.pop_front();
    return mesh;
}

std::optional<SurroundingPicture> SurroundingsReader::TakePicture() {
    std::optional<SurroundingPicture> taken;
    {
        const std::lock_guard lock(mutex);
        taken.swap(picture);
    }
    changed.notify_all();
    return taken;
}

bool SurroundingsReader::IsEmpty() {
    const std::lock_guard lock(mutex);
    return meshes.empty() && !picture && workers == 0;
}

void SurroundingsReader::Wait() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return IsReady(); });
}

} // namespace Annotator
