#include "Annotator/Window/CanvasDevice.h"
#include "Rendering/Memory/MemoryContext.h"

namespace Annotator {

namespace {

class DeviceGL final : public CanvasDevice {
public:
    Rendering::Context& Context() override { return context; }
    void MakeCurrent() override {}
    void Resize(Rendering::Size) override {}
    void BeginFrame() override {}
    void Present() override {}
    Rendering::Memory::MemoryContext context;
};

wxGLAttributes Attributes() {
    wxGLAttributes attributes;
    attributes.PlatformDefaults().MinRGBA(8, 8, 8, 8).DoubleBuffer().Depth(24).EndList();
    return attributes;
}

} // namespace

CanvasBase::CanvasBase(wxWindow* parent, wxWindowID id)
    : wxGLCanvas(parent, Attributes(), id, wxDefaultPosition, wxDefaultSize, 0) {}

std::unique_ptr<CanvasDevice> MakeCanvasDevice(CanvasBase&, const Rendering::Camera&) {
    return std::make_unique<DeviceGL>();
}

} // namespace Annotator
