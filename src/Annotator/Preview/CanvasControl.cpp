#include "Annotator/Preview/CanvasControl.h"

#include "CockpitModel/AircraftCockpit.h"

#include <algorithm>
#include <utility>

namespace Annotator {

namespace {

constexpr float kMetresPerSecond = 1.0f;
constexpr float kRadiansPerDrag = 2.0f; // across the whole canvas
constexpr float kHalfTurn = 3.1415927f, kQuarterTurn = 1.5707964f;

// The toolkit's key codes of the arrow keys; a letter's code is its capital letter.
constexpr int kLeftKey = 314, kUpKey = 315, kRightKey = 316, kDownKey = 317;

/// Rz(roll) x Rx(pitch) x Ry(yaw) for column vectors, with the opposite sense of rotation.
Utils::Matrix4 ColumnTurn(float pitch, float roll, float yaw) {
    return Utils::RotationZ(-roll) * Utils::RotationX(-pitch) * Utils::RotationY(-yaw);
}

} // namespace

Utils::Vector3 CameraPlace(const CockpitModel::AircraftCockpit& cockpit) {
    const Utils::Vector3 eye = cockpit.modelOffset + cockpit.pilotEye;
    return {eye.x(), eye.y(), -eye.z()};
}

void CanvasControl::Resize(CanvasPoint newSize) {
    clientSize = {std::max(newSize.x, 1), std::max(newSize.y, 1)};
    projection = Utils::PerspectiveFov(kFieldOfView, Aspect(), kNearPlane, farPlane);
}

void CanvasControl::SetFarPlane(float distance) {
    farPlane = distance;
    Resize(clientSize);
}

bool CanvasControl::SetKey(int keyCode, bool down) {
    static constexpr std::pair<int, bool CanvasControl::*> keys[] = {
        {'W', &CanvasControl::moveForward}, {kUpKey, &CanvasControl::moveForward},
        {'S', &CanvasControl::moveBack},    {kDownKey, &CanvasControl::moveBack},
        {'A', &CanvasControl::moveLeft},    {kLeftKey, &CanvasControl::moveLeft},
        {'D', &CanvasControl::moveRight},   {kRightKey, &CanvasControl::moveRight},
        {'Z', &CanvasControl::moveUp},      {'X', &CanvasControl::moveDown},
    };
    for (const auto& [code, flag] : keys) {
        if (code == keyCode) {
            this->*flag = down;
            return true;
        }
    }
    return false;
}

void CanvasControl::ReleaseKeys() {
    moveForward = moveBack = moveLeft = moveRight = moveUp = moveDown = false;
}

bool CanvasControl::IsKeyDown() const {
    return moveForward || moveBack || moveLeft || moveRight || moveUp || moveDown;
}

void CanvasControl::MoveCamera(float dt) {
    if (IsKeyDown())
        move.Stop();
    move.Advance(camera, dt);
    if (moveForward)
        StepCamera(0.0f, 0.0f, dt);
    else if (moveBack)
        StepCamera(kHalfTurn, 0.0f, dt);
    if (moveLeft)
        StepCamera(-kQuarterTurn, 0.0f, dt);
    else if (moveRight)
        StepCamera(kQuarterTurn, 0.0f, dt);
    if (moveUp)
        StepCamera(0.0f, -kQuarterTurn, dt);
    else if (moveDown)
        StepCamera(0.0f, kQuarterTurn, dt);
}

void CanvasControl::StepCamera(float yawOffset, float pitchOffset, float dt) {
    const Utils::Vector3& angles = camera.Rotation();
    const Utils::Matrix4 rotation =
        ColumnTurn(pitchOffset, 0.0f, yawOffset) * ColumnTurn(angles.x(), angles.y(), angles.z());
    // A camera with the Euler angles of this rotation looks along (-m20, -m21, m22), because roll keeps the view axis.
    // Reading the direction from the matrix avoids the angles, which are not unique when it looks straight up. The
    // camera's position has the opposite z axis.
    const Utils::Vector3 direction = -rotation.row(2).head<3>();
    camera.SetPosition(camera.Position() + direction * (kMetresPerSecond * dt));
}

void CanvasControl::Press(CanvasPoint pointer) {
    lastMouse = pointer;
    clickArmed = true;
}

void CanvasControl::Motion(CanvasPoint pointer, bool dragging) {
    if (!dragging) {
        TellClickables(pointer, kCanvasMove);
        return;
    }
    clickArmed = false;
    move.Stop();
    const float dx = static_cast<float>(pointer.x - lastMouse.x), dy = static_cast<float>(pointer.y - lastMouse.y);
    lastMouse = pointer;
    const Utils::Vector3 rotation(dy / static_cast<float>(clientSize.y), 0.0f, dx / static_cast<float>(clientSize.x));
    camera.SetRotation(camera.Rotation() + rotation * kRadiansPerDrag);
}

void CanvasControl::Release(CanvasPoint pointer) {
    // Disarmed first: a clickable may open a dialog, in which the toolkit delivers further events.
    if (std::exchange(clickArmed, false))
        TellClickables(pointer, kCanvasClick);
}

void CanvasControl::TellClickables(CanvasPoint pointer, CanvasEvent type) {
    const float nx = static_cast<float>(pointer.x) / static_cast<float>(clientSize.x);
    const float ny = static_cast<float>(pointer.y) / static_cast<float>(clientSize.y);
    CanvasMouseEvent event;
    event.type = type;
    event.view = camera.ViewMatrix();
    event.projection = projection;
    event.ray.direction =
        Utils::Normalised({(2.0f * nx - 1.0f) / projection(0, 0), (1.0f - 2.0f * ny) / projection(1, 1), 1.0f});
    for (const std::shared_ptr<Clickable>& clickable : clickables)
        clickable->OnMouseEvent(event);
}

} // namespace Annotator
