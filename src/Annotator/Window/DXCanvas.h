#pragma once

#include "Annotator/Preview/CanvasControl.h"
#include "Annotator/Window/CanvasDevice.h"
#include "Annotator/Window/FramePacer.h"
#include "Rendering/Stage.h"
#include "Utils/Timer.h"

#include <boost/signals2/signal.hpp>
#include <exception>
#include <functional>
#include <memory>

namespace Annotator {

/// The window with the 3D view. It owns the graphics device, which the first paint makes, and runs a frame on each idle
/// event; mouse and keys go to its control. User interface thread.
class DXCanvas : public CanvasBase {
public:
    DXCanvas(wxWindow* parent, wxWindowID id);
    ~DXCanvas() override;

    /// Lets go of the device for good. `releaseObjects` lets go of everything made on it, while it is current.
    void ReleaseDevice(const std::function<void()>& releaseObjects);

    CanvasControl control;       ///< camera, projection and clickables
    Rendering::StageList stages; ///< run in each frame
    /// What a frame, the making of the device or a move of the pointer threw. No frame runs while it is told.
    boost::signals2::signal<void(const std::exception&)> failureSignal;
    boost::signals2::signal<void(const std::exception&)> clickFailureSignal; ///< what a click threw

private:
    void OnSize(wxSizeEvent& event);
    void OnPaint(wxPaintEvent& event);
    void OnEraseBackground(wxEraseEvent& event);
    void OnIdle(wxIdleEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    void OnKeyUp(wxKeyEvent& event);
    void OnKillFocus(wxFocusEvent& event);

    void MakeDevice();
    void MakeCurrent();
    void Resize();
    bool Frame(); ///< whether it waited for the display
    void RunGuarded(const std::function<void()>& work);
    Rendering::Size PixelSize() const;

    bool paintedOnce = false;
    bool busy = false; ///< a modal box inside a frame pumps further events, which must not start another
    std::unique_ptr<CanvasDevice> device;
    Rendering::Size targetSize; ///< of the device's targets
    Utils::Timer frameTimer;    ///< seconds since the last frame
    FramePacer pacer;

    wxDECLARE_EVENT_TABLE();
};

} // namespace Annotator
