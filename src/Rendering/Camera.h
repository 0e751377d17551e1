#pragma once

#include "Utils/LinearAlgebra.h"

#include <array>
#include <cstddef>

namespace Rendering {

/// Position and direction of the viewer. The position's z has the opposite sign of the world's: a camera at (x, y, z)
/// is at (x, y, -z) in the world. Metres and radians.
class Camera {
public:
    const Utils::Vector3& Position() const { return position; }
    void SetPosition(const Utils::Vector3& newPosition) { position = newPosition; }
    /// Pitch, roll, yaw.
    const Utils::Vector3& Rotation() const { return rotation; }
    void SetRotation(const Utils::Vector3& newRotation) { rotation = newRotation; }
    /// From the view to an eye's view: 0 left, 1 right.
    const Utils::Matrix4& EyeMatrix(std::size_t eye) const { return eyeMatrices.at(eye); }

    Utils::Matrix4 ViewMatrix() const;

private:
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector3 rotation = Utils::Vector3::Zero();
    std::array<Utils::Matrix4, 2> eyeMatrices = {Utils::Matrix4::Identity(), Utils::Matrix4::Identity()};
};

} // namespace Rendering
