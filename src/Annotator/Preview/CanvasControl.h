#pragma once

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

/// What a frame is cleared to: red, green, blue, alpha.
inline const Utils::Vector4 kCanvasColour{0.5f, 0.5f, 0.5f, 1.0f};

/// Where the camera stands when a cockpit opens: at the pilot's eye, in the camera's axes.
Utils::Vector3 CameraPlace(const CockpitModel::AircraftCockpit& cockpit);

/// What the canvas does with mouse and keys, without a toolkit: it moves the camera, and turns the pointer into a ray
/// for its clickables. User interface thread.
class CanvasControl {
public:
    /// Sets the projection for a client size; a size of zero pixels counts as one.
    void Resize(CanvasPoint newSize);
    /// How far the camera sees, metres, from now on.
    void SetFarPlane(float distance);
    float Aspect() const { return static_cast<float>(clientSize.x) / static_cast<float>(clientSize.y); }

    /// Sets or clears the flag of a key, by the toolkit's code; false for a key without a use.
    bool SetKey(int keyCode, bool down);
    /// All keys up, as when the focus leaves.
    void ReleaseKeys();
    /// Moves the camera for a frame of dt seconds.
    void MoveCamera(float dt);

    void Press(CanvasPoint pointer);
    void Motion(CanvasPoint pointer, bool dragging);
    void Release(CanvasPoint pointer);

    Rendering::Camera camera;
    Utils::Matrix4 projection = Utils::Matrix4::Identity();
    std::vector<std::shared_ptr<Clickable>> clickables;

private:
    void StepCamera(float yawOffset, float pitchOffset, float dt);
    void TellClickables(CanvasPoint pointer, CanvasEvent type);

    CanvasPoint clientSize{1, 1};
    float farPlane = kFarPlane;
    CanvasPoint lastMouse; ///< of the last press or drag step
    bool moveForward = false, moveBack = false, moveLeft = false, moveRight = false, moveUp = false, moveDown = false;
    bool clickArmed = false; ///< from a press until a drag step or the release
};

} // namespace Annotator
