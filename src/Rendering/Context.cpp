#include "Rendering/Context.h"

#include "Logging/Logger.h"
#include "Utils/FatalError.h"

#include <algorithm>
#include <utility>

namespace Rendering {

bool CameraImage::IsWhole() const {
    return size.Area() != 0 && distortionSize.Area() != 0 && grey.size() >= size.Area() &&
           distortion.size() >= 2 * distortionSize.Area();
}

RenderToTextureLock::~RenderToTextureLock() noexcept(false) {
    if (restored)
        return;
    if (std::uncaught_exceptions() > exceptionsBefore) // a second exception would end the process
        Logging::Logger::Get().Log(HERE, "A bitmap is still the render target");
    else
        Utils::FatalError(HERE);
}

void Context::DeferRelease(std::shared_ptr<void> object) {
    const std::lock_guard lock(mutex);
    releaseList.push_back(std::move(object));
}

void Context::ReleaseDeferred() {
    std::vector<std::shared_ptr<void>> released;
    {
        // Destroyed outside the lock, because a destructor may defer further objects.
        const std::lock_guard lock(mutex);
        released.swap(releaseList);
    }
    for (std::shared_ptr<void>& object : released)
        object.reset();
}

void Context::QueueDraw(const Utils::Vector3& position, bool last, QueuedDraw draw) {
    drawQueue.push_back({position, last, std::move(draw)});
}

void Context::FlushDrawQueue(const Utils::Matrix4& view, void* argument) {
    // Emptied first, because a draw may queue others, which wait for the next flush.
    std::vector<QueueEntry> draws = std::exchange(drawQueue, {});
    for (QueueEntry& entry : draws)
        entry.position = Utils::TransformPoint(entry.position, view);
    std::stable_sort(draws.begin(), draws.end(), [](const QueueEntry& a, const QueueEntry& b) {
        if (a.last != b.last)
            return b.last;
        return Utils::LengthSquared(a.position) > Utils::LengthSquared(b.position);
    });
    for (const QueueEntry& entry : draws)
        entry.draw(*this, view, argument);
}

void Context::GenerateMips(GPUBitmap*) {}

void Context::ClearBitmap(GPUBitmap*, const Utils::Vector4&) {}

} // namespace Rendering
