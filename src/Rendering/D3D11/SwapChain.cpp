#include "Rendering/D3D11/SwapChain.h"

namespace Rendering::D3D11 {

namespace {

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

DXGI_SWAP_CHAIN_DESC SwapChainOf(HWND window, Size size) {
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

} // namespace

SwapChain::SwapChain(HWND window, Size size, const Camera& camera) {
    Check(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, 0, nullptr, 0, D3D11_SDK_VERSION, &device,
                            nullptr, &deviceContext),
          kPlace, kDevice);
    CreateBuffers(window, size);
    CreateTargets(kBackBuffer, kTargetView);
    CreateDepthState();
    context.emplace(device.Get(), camera);
}

void SwapChain::Resize(Size size) {
    deviceContext->OMSetRenderTargets(0, nullptr, nullptr);
    renderTargetView.Reset();
    backBuffer.Reset();
    depthBuffer.reset();
    Check(swapChain->ResizeBuffers(kBuffers, size.width, size.height, DXGI_FORMAT_R8G8B8A8_UNORM,
                                   DXGI_SWAP_CHAIN_FLAG_ALLOW_MODE_SWITCH),
          kPlace, kResizedBuffers);
    CreateTargets(kResizedBackBuffer, kResizedTargetView);
}

void SwapChain::Begin(const Utils::Vector4& colour) {
    const D3D11_VIEWPORT whole{
        0.0f, 0.0f, static_cast<float>(depthBuffer->Width()), static_cast<float>(depthBuffer->Height()), 0.0f, 1.0f};
    deviceContext->RSSetViewports(1, &whole);
    deviceContext->ClearRenderTargetView(renderTargetView.Get(), colour.data());
    deviceContext->ClearDepthStencilView(depthBuffer->DepthView(), D3D11_CLEAR_DEPTH, 1.0f, 0);
    deviceContext->OMSetDepthStencilState(depthStencilState.Get(), 0);
    deviceContext->OMSetRenderTargets(1, renderTargetView.GetAddressOf(), depthBuffer->DepthView());
}

bool SwapChain::Present() {
    const HRESULT result = swapChain->Present(1, 0);
    Check(result, HERE);
    context->ReleaseDeferred();
    return result != DXGI_STATUS_OCCLUDED;
}

void SwapChain::CreateBuffers(HWND window, Size size) {
    ComPtr<IDXGIFactory> factory;
    Check(CreateDXGIFactory(IID_PPV_ARGS(&factory)), kPlace, kFactory);
    DXGI_SWAP_CHAIN_DESC description = SwapChainOf(window, size);
    Check(factory->CreateSwapChain(device.Get(), &description, &swapChain), kPlace, kSwapChain);
}

void SwapChain::CreateTargets(std::int32_t bufferLine, std::int32_t viewLine) {
    Check(swapChain->GetBuffer(0, IID_PPV_ARGS(&backBuffer)), kPlace, bufferLine);
    Check(device->CreateRenderTargetView(backBuffer.Get(), nullptr, &renderTargetView), kPlace, viewLine);
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

void SwapChain::CreateDepthState() {
    D3D11_DEPTH_STENCIL_DESC description{};
    description.DepthEnable = TRUE;
    description.DepthWriteMask = D3D11_DEPTH_WRITE_MASK_ALL;
    description.DepthFunc = D3D11_COMPARISON_LESS_EQUAL;
    description.FrontFace = description.BackFace = {D3D11_STENCIL_OP_KEEP, D3D11_STENCIL_OP_KEEP, D3D11_STENCIL_OP_KEEP,
                                                    D3D11_COMPARISON_ALWAYS};
    Check(device->CreateDepthStencilState(&description, &depthStencilState), kPlace, kDepthState);
}

} // namespace Rendering::D3D11
