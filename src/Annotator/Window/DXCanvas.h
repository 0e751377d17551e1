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

/// The window with the 3D view. It owns the graphics device, which the first paint creates, and runs a frame on each
/// idle event; its control handles mouse and keys. User interface thread.
class DXCanvas : public CanvasBase {
public:
    DXCanvas(wxWindow* parent, wxWindowID id);
    ~DXCanvas() override;

    /// Releases the device permanently. `releaseObjects` must release all its objects; the device is current meanwhile.
    void ReleaseDevice(const std::function<void()>& releaseObjects);

    Rendering::Size PixelSize() const; ///< of the frames, in screen pixels

    CanvasControl control;       ///< camera, projection and clickables
    Rendering::StageList stages; ///< run in each frame
    /// Emitted with an exception of a frame, of the device's creation or of a pointer move. No frame runs meanwhile.
    boost::signals2::signal<void(const std::exception&)> failureSignal;
    boost::signals2::signal<void(const std::exception&)> clickFailureSignal; ///< emitted with an exception of a click

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

    bool paintedOnce = false;
    bool busy = false; ///< a modal box inside a frame pumps further events, which must not start another
    std::unique_ptr<CanvasDevice> device;
    Rendering::Size targetSize; ///< of the device's targets
    Utils::Timer frameTimer;    ///< seconds since the last frame
    FramePacer pacer;

    wxDECLARE_EVENT_TABLE();
};

} // namespace Annotator
