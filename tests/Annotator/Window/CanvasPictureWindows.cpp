#include "Annotator/Window/CanvasPicture.h"

#include "Annotator/Window/Toolkit.h"
#include "Rendering/D3D11/D3D11FrameTarget.h"

#include <cstring>
#include <map>

namespace Support {

namespace {

/// Reads what the stages before it have drawn in one frame. A stage cannot be removed, so it does nothing afterwards.
struct ReadingStage final : Rendering::Stage {
    void Render(Rendering::Context& context, const Utils::Matrix4&, const Utils::Matrix4&) override {
        if (picture.IsOk())
            return;
        const auto any = context.CreateRenderTarget({1, 1}, 1, 0);
        ID3D11Device* const device = dynamic_cast<Rendering::D3D11::D3D11GPUBitmap&>(*any).Device();
        Rendering::D3D11::ComPtr<ID3D11RenderTargetView> target;
        Rendering::D3D11::ImmediateContext(device)->OMGetRenderTargets(1, &target, nullptr);
        Rendering::D3D11::ComPtr<ID3D11Resource> resource;
        target->GetResource(&resource);
        Rendering::D3D11::ComPtr<ID3D11Texture2D> texture;
        Rendering::D3D11::Check(resource.As(&texture), HERE);
        Keep(Rendering::D3D11::ReadTexture(device, texture.Get()));
    }

    wxImage picture;

private:
    void Keep(const Rendering::MemBitmap& pixels) {
        picture.Create(static_cast<int>(pixels.Width()), static_cast<int>(pixels.Height()));
        unsigned char* to = picture.GetData();
        for (const std::uint32_t pixel : pixels.Pixels()) {
            std::memcpy(to, &pixel, 3);
            to += 3;
        }
    }
};

} // namespace

wxImage CanvasPicture(Annotator::DXCanvas& canvas) {
    const auto reader = std::make_shared<ReadingStage>();
    canvas.stages.Add(reader);
    PumpUntil([&] { return reader->picture.IsOk(); });
    return reader->picture;
}

void SendKey(Annotator::DXCanvas& canvas, int code, bool down) {
    const std::map<int, WPARAM> special = {{WXK_LEFT, VK_LEFT}, {WXK_RIGHT, VK_RIGHT}, {WXK_TAB, VK_TAB}};
    const auto found = special.find(code);
    const bool arrow = code == WXK_LEFT || code == WXK_RIGHT;
    // Once; an arrow that is not the number pad's; what a release has in addition.
    const LPARAM flags = 1 | (arrow ? 1 << 24 : 0) | (down ? 0 : static_cast<LPARAM>(0xC0000000));
    PostMessage(canvas.GetHWND(), down ? WM_KEYDOWN : WM_KEYUP,
                found == special.end() ? static_cast<WPARAM>(code) : found->second, flags);
}

} // namespace Support
