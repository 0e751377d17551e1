#include "Annotator/Window/DXCanvas.h"

#include "Annotator/Window/CommandKeys.h"
#include "Annotator/Window/FatalErrorBox.h"
#include "Utils/FatalError.h"

#include <algorithm>
#include <cmath>
#include <wx/dcclient.h>

namespace Annotator {

namespace {

CanvasPoint PointerOf(const wxMouseEvent& event) {
    return {event.GetX(), event.GetY()};
}

} // namespace

DXCanvas::DXCanvas(wxWindow* parent, wxWindowID id) : CanvasBase(parent, id) {}

DXCanvas::~DXCanvas() {
    ReleaseDevice([] {});
}

void DXCanvas::ReleaseDevice(const std::function<void()>& releaseObjects) {
    // If the driver refuses, the calls do nothing and the objects are freed with the window.
    if (device)
        static_cast<void>(device->MakeCurrent());
    releaseObjects();
    device.reset();
}

void DXCanvas::OnSize(wxSizeEvent&) {
    if (device)
        RunGuarded([this] { Resize(); });
}

void DXCanvas::OnPaint(wxPaintEvent&) {
    const wxPaintDC dc(this);
    if (paintedOnce)
        return;
    paintedOnce = true;
    RunGuarded([this] { MakeDevice(); });
}

// Erasing the background would flicker between frames.
void DXCanvas::OnEraseBackground(wxEraseEvent&) {}

void DXCanvas::OnIdle(wxIdleEvent& event) {
    event.RequestMore(true);
    // A hidden window has no surface to draw on, but still gets idle events.
    bool waited = false; // for the display
    if (device && IsShownOnScreen() && !FatalErrorBoxIsUp())
        RunGuarded([&] { waited = Frame(); });
    if (!waited)
        pacer.Wait();
}

void DXCanvas::OnLeftDown(wxMouseEvent& event) {
    SetFocus();
    if (!HasCapture())
        CaptureMouse();
    control.Press(PointerOf(event));
}

void DXCanvas::OnLeftUp(wxMouseEvent& event) {
    if (HasCapture())
        ReleaseMouse();
    RunGuarded([&] {
        try {
            control.Release(PointerOf(event));
        } catch (const std::exception& error) {
            clickFailureSignal(error);
        }
    });
}

void DXCanvas::OnMotion(wxMouseEvent& event) {
    RunGuarded([&] { control.Motion(PointerOf(event), event.Dragging()); });
}

// The toolkit requires a handler; the drag ends with the next motion without a pressed button.
void DXCanvas::OnCaptureLost(wxMouseCaptureLostEvent&) {}

void DXCanvas::OnKeyDown(wxKeyEvent& event) {
    // Keys are not passed on, because the toolkit would move the focus with arrow keys. Only Tab must move it, and the
    // menus need theirs.
    if (IsCommandKey(event.GetKeyCode()))
        event.Skip();
    else if (event.GetKeyCode() == WXK_TAB)
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
    else
        control.SetKey(event.GetKeyCode(), true);
}

void DXCanvas::OnKeyUp(wxKeyEvent& event) {
    control.SetKey(event.GetKeyCode(), false);
}

void DXCanvas::OnKillFocus(wxFocusEvent& event) {
    // Another window will get the key's release.
    control.ReleaseKeys();
    event.Skip();
}

void DXCanvas::MakeDevice() {
    device = MakeCanvasDevice(*this, control.camera);
    Resize();
}

void DXCanvas::MakeCurrent() {
    if (!device->MakeCurrent())
        Utils::FatalError(HERE);
}

void DXCanvas::Resize() {
    const wxSize size = GetClientSize();
    control.Resize({size.x, size.y});
    targetSize = PixelSize();
    MakeCurrent();
    device->Resize(targetSize);
}

bool DXCanvas::Frame() {
    control.MoveCamera(static_cast<float>(frameTimer.ElapsedAndRestart()));
    // A window that moves to a display with another scale gets no size event.
    if (PixelSize() != targetSize)
        Resize();
    MakeCurrent();
    device->BeginFrame();
    stages.Run(device->Context(), control.camera.ViewMatrix(), control.projection);
    return device->Present();
}

void DXCanvas::RunGuarded(const std::function<void()>& work) {
    if (busy)
        return;
    busy = true;
    try {
        work();
    } catch (const std::exception& error) {
        failureSignal(error);
    }
    busy = false;
}

Rendering::Size DXCanvas::PixelSize() const {
    const wxSize size = GetClientSize();
    const double scale = GetContentScaleFactor();
    const auto pixels = [scale](int length) {
        return static_cast<std::uint32_t>(std::max(1.0, std::round(length * scale)));
    };
    return {pixels(size.x), pixels(size.y)};
}

// clang-format off
wxBEGIN_EVENT_TABLE(DXCanvas, CanvasBase)
    EVT_SIZE(DXCanvas::OnSize)
    EVT_PAINT(DXCanvas::OnPaint)
    EVT_ERASE_BACKGROUND(DXCanvas::OnEraseBackground)
    EVT_IDLE(DXCanvas::OnIdle)
    EVT_LEFT_DOWN(DXCanvas::OnLeftDown)
    EVT_LEFT_UP(DXCanvas::OnLeftUp)
    EVT_MOTION(DXCanvas::OnMotion)
    EVT_MOUSE_CAPTURE_LOST(DXCanvas::OnCaptureLost)
    EVT_KEY_DOWN(DXCanvas::OnKeyDown)
    EVT_KEY_UP(DXCanvas::OnKeyUp)
    EVT_KILL_FOCUS(DXCanvas::OnKillFocus)
wxEND_EVENT_TABLE()

} // namespace Annotator
