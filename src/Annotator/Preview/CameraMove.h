#pragma once

#include "Rendering/Camera.h"
#include "Utils/LinearAlgebra.h"

#include <optional>

namespace Annotator {

/// A place and a direction of the camera, in its own axes: metres, and radians as pitch, roll, yaw.
struct CameraPose {
    Utils::Vector3 position = Utils::Vector3::Zero();
    Utils::Vector3 rotation = Utils::Vector3::Zero();
};

/// Duration of a move, seconds.
inline constexpr float kMoveSeconds = 0.25f;

/// A smooth move of a camera to another pose, by the shorter turn. It knows no clock: each frame passes its time.
class CameraMove {
public:
    /// Replaces a running move.
    void Start(const Rendering::Camera& camera, const CameraPose& target);
    void Stop() { running = false; }
    bool IsRunning() const { return running; }
    /// Moves the camera by dt seconds of a running move. The first call after Start sets the time to 0: its dt is that
    /// of what came before the move, such as an open menu.
    void Advance(Rendering::Camera& camera, float dt);

private:
    CameraPose from, to;
    std::optional<float> elapsed; ///< seconds; empty before the first frame of a move
    bool running = false;
};

} // namespace Annotator
