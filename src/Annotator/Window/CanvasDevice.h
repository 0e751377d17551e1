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

/// The toolkit's window class that this platform's device can draw on.
class CanvasBase : public CanvasToolkitBase {
protected:
    CanvasBase(wxWindow* parent, wxWindowID id);

#ifdef __WXMSW__
    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;
#endif
};

/// A graphics device with its targets on a canvas. Objects of its context must be destroyed before it. User interface
/// thread; a failed call is a fatal error.
class CanvasDevice : public Utils::NonAssignable {
public:
    virtual ~CanvasDevice() = default;

    virtual Rendering::Context& Context() = 0;
    /// Must be called before objects are created, used or released outside a frame. Returns false and logs a line if
    /// the driver refuses.
    [[nodiscard]] virtual bool MakeCurrent() = 0;
    /// Recreates the targets with a size in screen pixels.
    virtual void Resize(Rendering::Size size) = 0;
    /// Sets the viewport to the whole target and clears it to mid grey and maximum depth.
    virtual void BeginFrame() = 0;
    /// Shows the frame and waits for the display. Returns false if it did not wait, for example for a hidden window.
    virtual bool Present() = 0;
};

/// The canvas must be on the screen and outlive the device, as must the camera.
std::unique_ptr<CanvasDevice> MakeCanvasDevice(CanvasBase& canvas, const Rendering::Camera& camera);

} // namespace Annotator
