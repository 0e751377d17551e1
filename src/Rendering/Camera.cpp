#include "Rendering/Camera.h"

namespace Rendering {

Utils::Matrix4 Camera::ViewMatrix() const {
    const float pitch = rotation.x(), roll = rotation.y(), yaw = rotation.z();
    const Utils::Matrix4 turn = Utils::RotationZ(-roll) * Utils::RotationX(pitch) * Utils::RotationY(yaw);
    // The inverse of a rotation is its transpose.
    return Utils::Translation({-position.x(), -position.y(), position.z()}) * turn.transpose();
}

} // namespace Rendering
