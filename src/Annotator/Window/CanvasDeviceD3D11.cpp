#include "Annotator/Window/CanvasDevice.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Rendering/D3D11/SwapChain.h"

namespace Annotator {

namespace {

Rendering::Size PixelsOf(const wxSize& size) {
    return {static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y)};
}

class CanvasDeviceD3D11 final : public CanvasDevice {
public:
    CanvasDeviceD3D11(CanvasBase& canvas, const Rendering::Camera& camera)
        : window(canvas.GetHWND()), swapChain(window, PixelsOf(canvas.GetClientSize()), camera) {}

    Rendering::Context& Context() override { return swapChain.Context(); }
    bool MakeCurrent() override { return true; }
    void Resize(Rendering::Size size) override { swapChain.Resize(size); }
    void BeginFrame() override { swapChain.Begin(kCanvasColour); }
    bool Present() override { return swapChain.Present() && !IsIconic(GetAncestor(window, GA_ROOT)); }

private:
    HWND window;
    Rendering::D3D11::SwapChain swapChain;
};

} // namespace

CanvasBase::CanvasBase(wxWindow* parent, wxWindowID id) : wxWindow(parent, id, wxDefaultPosition, wxDefaultSize, 0) {}

WXLRESULT CanvasBase::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) {
    // The toolkit asks before it uses arrow keys to move the focus and letters as shortcuts.
    if (message == WM_GETDLGCODE)
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    return CanvasToolkitBase::MSWWindowProc(message, wParam, lParam);
}

std::unique_ptr<CanvasDevice> MakeCanvasDevice(CanvasBase& canvas, const Rendering::Camera& camera) {
    return std::make_unique<CanvasDeviceD3D11>(canvas, camera);
}

} // namespace Annotator
