#include "Annotator/Preview/CameraMove.h"

namespace Annotator {

namespace {

constexpr float kFullTurn = 6.2831853f;

/// The angles of the same direction that are nearest to others.
Utils::Vector3 NearestTo(const Utils::Vector3& target, const Utils::Vector3& angles) {
    return angles - kFullTurn * ((angles - target) / kFullTurn).array().round().matrix();
}

/// Slow at both ends.
float Eased(float share) {
    return share * share * (3.0f - 2.0f * share);
}

} // namespace

void CameraMove::Start(const Rendering::Camera& camera, const CameraPose& target) {
    from = {camera.Position(), NearestTo(target.rotation, camera.Rotation())};
    to = target;
    elapsed.reset();
    running = true;
}

void CameraMove::Advance(Rendering::Camera& camera, float dt) {
    if (!running)
        return;
    elapsed = elapsed ? *elapsed + dt : 0.0f;
    running = *elapsed < kMoveSeconds;
    // The last step sets the target itself, without the rounding of the formula.
    const float share = Eased(*elapsed / kMoveSeconds);
    camera.SetPosition(running ? from.position + (to.position - from.position) * share : to.position);
    camera.SetRotation(running ? from.rotation + (to.rotation - from.rotation) * share : to.rotation);
}

} // namespace Annotator
