#include "Rendering/D3D11/Quad.h"

namespace Rendering::D3D11 {

namespace {

constexpr UINT kVertexCount = 6;
constexpr UINT kStride = 12; ///< bytes per vertex

} // namespace

Quad::Quad(ID3D11Device* device, float z) {
    const float positions[kVertexCount][3] = {{-1, -1, z}, {-1, 1, z}, {1, 1, z}, {1, 1, z}, {1, -1, z}, {-1, -1, z}};
    const D3D11_BUFFER_DESC description{sizeof(positions), D3D11_USAGE_DEFAULT, D3D11_BIND_VERTEX_BUFFER, 0, 0, 0};
    const D3D11_SUBRESOURCE_DATA data{positions, 0, 0};
    Check(device->CreateBuffer(&description, &data, &vertices), HERE);
}

void Quad::Draw(ID3D11DeviceContext* context) const {
    constexpr UINT kOffset = 0;
    context->IASetVertexBuffers(0, 1, vertices.GetAddressOf(), &kStride, &kOffset);
    context->IASetPrimitiveTopology(D3D11_PRIMITIVE_TOPOLOGY_TRIANGLELIST);
    context->Draw(kVertexCount, 0);
}

} // namespace Rendering::D3D11
