#pragma once

#include "Annotator/Preview/CameraMove.h"
#include "Annotator/Preview/Clickable.h"
#include "Rendering/Camera.h"
#include "Utils/LinearAlgebra.h"

#include <memory>
#include <vector>

namespace CockpitModel {
struct AircraftCockpit;
}

namespace Annotator {

/// A point or size of the canvas in client pixels.
struct CanvasPoint {
    int x = 0, y = 0;
};

/// The canvas's projection: radians, vertical, and metres.
inline constexpr float kFieldOfView = 1.0f;
inline constexpr float kNearPlane = 0.05f, kFarPlane = 30.0f;

/// The colour a frame is cleared to: red, green, blue, alpha.
inline const Utils::Vector4 kCanvasColour{0.5f, 0.5f, 0.5f, 1.0f};

/// The camera position when a cockpit opens: the pilot's eye, in the camera's axes.
Utils::Vector3 CameraPlace(const CockpitModel::AircraftCockpit& cockpit);

/// Mouse and key handling of the canvas, without a toolkit: it moves the camera and converts the pointer position into
/// a ray for its clickables. User interface thread.
class CanvasControl {
public:
    /// Sets the projection for a client size; a size of zero pixels counts as one.
    void Resize(CanvasPoint newSize);
    /// Sets the distance of the far plane, metres.
    void SetFarPlane(float distance);
    float Aspect() const { return static_cast<float>(clientSize.x) / static_cast<float>(clientSize.y); }

    /// Sets or clears the flag of a key, by the toolkit's key code; false for an unused key.
    bool SetKey(int keyCode, bool down);
    /// Releases all keys, for example when the focus leaves.
    void ReleaseKeys();
    /// Moves the camera for a frame of dt seconds.
    void MoveCamera(float dt);
    /// Starts a move that the next frames carry out. A key or a drag that moves the camera ends it, as does StopMove.
    void MoveTo(const CameraPose& pose) { move.Start(camera, pose); }
    void StopMove() { move.Stop(); }

    void Press(CanvasPoint pointer);
    void Motion(CanvasPoint pointer, bool dragging);
    void Release(CanvasPoint pointer);

    Rendering::Camera camera;
    Utils::Matrix4 projection = Utils::Matrix4::Identity();
    std::vector<std::shared_ptr<Clickable>> clickables;

private:
    bool IsKeyDown() const;
    void StepCamera(float yawOffset, float pitchOffset, float dt);
    void TellClickables(CanvasPoint pointer, CanvasEvent type);

    CanvasPoint clientSize{1, 1};
    float farPlane = kFarPlane;
    CanvasPoint lastMouse; ///< of the last press or drag step
    bool moveForward = false, moveBack = false, moveLeft = false, moveRight = false, moveUp = false, moveDown = false;
    CameraMove move;
    bool clickArmed = false; ///< from a press until a drag step or the release
};

} // namespace Annotator
