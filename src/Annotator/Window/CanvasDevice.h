#pragma once

#include "Rendering/Camera.h"
#include "Rendering/Context.h"
#include "Utils/NonAssignable.h"

#include <memory>
#ifdef __WXMSW__
#include <wx/window.h>
#else
#include <wx/glcanvas.h>
#endif

namespace Annotator {

#ifdef __WXMSW__
using CanvasToolkitBase = wxWindow;
#else
using CanvasToolkitBase = wxGLCanvas;
#endif

/// The toolkit's window that a device of this platform can draw on.
class CanvasBase : public CanvasToolkitBase {
protected:
    CanvasBase(wxWindow* parent, wxWindowID id);

#ifdef __WXMSW__
    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;
#endif
};

/// A graphics device with its targets on a canvas. Objects of its context must go before it does. User interface
/// thread; a failing call is a fatal error.
class CanvasDevice : public Utils::NonAssignable {
public:
    virtual ~CanvasDevice() = default;

    virtual Rendering::Context& Context() = 0;
    /// To be called before everything that makes, uses or releases objects outside a frame. False, with a line in the
    /// log, where the driver refuses.
    [[nodiscard]] virtual bool MakeCurrent() = 0;
    /// Remakes the targets, in pixels of the screen.
    virtual void Resize(Rendering::Size size) = 0;
    /// Sets the viewport to the whole target and clears it to mid grey and the farthest depth.
    virtual void BeginFrame() = 0;
    /// Shows the frame and waits for the display. False where nothing waited, as when the window is out of sight.
    virtual bool Present() = 0;
};

/// The canvas must be on the screen and outlive the device, as must the camera.
std::unique_ptr<CanvasDevice> MakeCanvasDevice(CanvasBase& canvas, const Rendering::Camera& camera);

} // namespace Annotator
