#include "Annotator/Window/CanvasDevice.h"

#include "Annotator/Preview/CanvasControl.h"
#include "Rendering/D3D11/D3D11Context.h"
#include "Rendering/D3D11/DX11Texture.h"

#include <optional>

namespace Annotator {

namespace {

using Rendering::D3D11::Check;
using Rendering::D3D11::ComPtr;

// Fatal errors of the canvas report these fixed locations, independent of where the code is.
constexpr const char* kPlace = "Annotator\\DXCanvas.cpp";
enum Line : std::int32_t {
    kDevice = 280,
    kFactory = 284,
    kSwapChain = 287,
    kBackBuffer = 296,
    kTargetView = 301,
    kDepthState = 326,
    kResizedBuffers = 350,
    kResizedBackBuffer = 354,
    kResizedTargetView = 359
};

constexpr UINT kBuffers = 2;

DXGI_SWAP_CHAIN_DESC SwapChainOf(HWND window, Rendering::Size size) {
    DXGI_SWAP_CHAIN_DESC description{};
    description.BufferDesc.Width = size.width;
    description.BufferDesc.Height = size.height;
    description.BufferDesc.RefreshRate = {60, 1};
    description.BufferDesc.Format = DXGI_FORMAT_R8G8B8A8_UNORM;
    description.SampleDesc.Count = 1;
    description.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    description.BufferCount = kBuffers;
    description.OutputWindow = window;
    description.Windowed = TRUE;
    description.SwapEffect = DXGI_SWAP_EFFECT_SEQUENTIAL;
    description.Flags = DXGI_SWAP_CHAIN_FLAG_ALLOW_MODE_SWITCH;
    return description;
}

class CanvasDeviceD3D11 final : public CanvasDevice {
public:
    CanvasDeviceD3D11(CanvasBase& canvas, const Rendering::Camera& camera) : window(canvas.GetHWND()) {
        Check(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0, D3D11_SDK_VERSION, &device,
                                nullptr, &deviceContext),
              kPlace, kDevice);
        CreateSwapChain(canvas.GetClientSize());
        CreateTargets(kBackBuffer, kTargetView);
        CreateDepthState();
        context.emplace(device.Get(), camera);
    }

    Rendering::Context& Context() override { return *context; }
    bool MakeCurrent() override { return true; }

    void Resize(Rendering::Size size) override {
        deviceContext->OMSetRenderTargets(0, nullptr, nullptr);
        renderTargetView.Reset();
        backBuffer.Reset();
        depthBuffer.reset();
        Check(swapChain->ResizeBuffers(kBuffers, size.width, size.height, DXGI_FORMAT_R8G8B8A8_UNORM,
                                       DXGI_SWAP_CHAIN_FLAG_ALLOW_MODE_SWITCH),
              kPlace, kResizedBuffers);
        CreateTargets(kResizedBackBuffer, kResizedTargetView);
    }

    void BeginFrame() override {
        const D3D11_VIEWPORT whole{
            0.0f, 0.0f, static_cast<float>(depthBuffer->Width()), static_cast<float>(depthBuffer->Height()),
            0.0f, 1.0f};
        deviceContext->RSSetViewports(1, &whole);
        deviceContext->ClearRenderTargetView(renderTargetView.Get(), kCanvasColour.data());
        deviceContext->ClearDepthStencilView(depthBuffer->DepthView(), D3D11_CLEAR_DEPTH, 1.0f, 0);
        deviceContext->OMSetDepthStencilState(depthStencilState.Get(), 0);
        deviceContext->OMSetRenderTargets(1, renderTargetView.GetAddressOf(), depthBuffer->DepthView());
    }

    bool Present() override {
        const HRESULT result = swapChain->Present(1, 0);
        Check(result, HERE);
        context->ReleaseDeferred();
        return result != DXGI_STATUS_OCCLUDED && !IsIconic(GetAncestor(window, GA_ROOT));
    }

private:
    void CreateSwapChain(const wxSize& size) {
        ComPtr<IDXGIFactory> factory;
        Check(CreateDXGIFactory(IID_PPV_ARGS(&factory)), kPlace, kFactory);
        DXGI_SWAP_CHAIN_DESC description =
            SwapChainOf(window, {static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y)});
        Check(factory->CreateSwapChain(device.Get(), &description, &swapChain), kPlace, kSwapChain);
    }

    void CreateTargets(Line buffer, Line view) {
        Check(swapChain->GetBuffer(0, IID_PPV_ARGS(&backBuffer)), kPlace, buffer);
        Check(device->CreateRenderTargetView(backBuffer.Get(), nullptr, &renderTargetView), kPlace, view);
        D3D11_TEXTURE2D_DESC description;
        backBuffer->GetDesc(&description);
        description.MipLevels = description.ArraySize = 1;
        description.Format = DXGI_FORMAT_D32_FLOAT;
        description.SampleDesc = {1, 0};
        description.Usage = D3D11_USAGE_DEFAULT;
        description.BindFlags = D3D11_BIND_DEPTH_STENCIL;
        description.CPUAccessFlags = description.MiscFlags = 0;
        depthBuffer.emplace(device.Get(), description);
    }

    void CreateDepthState() {
        D3D11_DEPTH_STENCIL_DESC description{};
        description.DepthEnable = TRUE;
        description.DepthWriteMask = D3D11_DEPTH_WRITE_MASK_ALL;
        description.DepthFunc = D3D11_COMPARISON_LESS_EQUAL;
        description.FrontFace = description.BackFace = {D3D11_STENCIL_OP_KEEP, D3D11_STENCIL_OP_KEEP,
                                                        D3D11_STENCIL_OP_KEEP, D3D11_COMPARISON_ALWAYS};
        Check(device->CreateDepthStencilState(&description, &depthStencilState), kPlace, kDepthState);
    }

    HWND window;
    ComPtr<IDXGISwapChain> swapChain;
    ComPtr<ID3D11Device> device;
    ComPtr<ID3D11DeviceContext> deviceContext;
    ComPtr<ID3D11Texture2D> backBuffer;
    ComPtr<ID3D11RenderTargetView> renderTargetView;
    std::optional<Rendering::D3D11::DX11Texture> depthBuffer;
    ComPtr<ID3D11DepthStencilState> depthStencilState;
    std::optional<Rendering::D3D11::D3D11Context> context;
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
