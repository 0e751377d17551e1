#include "Rendering/D3D11/Geometry.h"

#include <limits>

namespace Rendering::D3D11 {

Geometry::Geometry(ID3D11Device* device, std::span<const GeometryVertex> vertices)
    : count(vertices.size()), device(device) {
    if (vertices.empty() || vertices.size_bytes() > std::numeric_limits<UINT>::max())
        Check(E_INVALIDARG, HERE);
    const D3D11_BUFFER_DESC description{
        static_cast<UINT>(vertices.size_bytes()), D3D11_USAGE_DEFAULT, D3D11_BIND_VERTEX_BUFFER, 0, 0, 0};
    const D3D11_SUBRESOURCE_DATA data{vertices.data(), 0, 0};
    Check(device->CreateBuffer(&description, &data, &buffer), HERE);
}

} // namespace Rendering::D3D11
