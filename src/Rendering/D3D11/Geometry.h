#pragma once

#include "Rendering/Context.h"
#include "Rendering/D3D11/D3D11Call.h"

#include <span>

namespace Rendering::D3D11 {

/// A vertex buffer.
class Geometry : public Rendering::Geometry {
public:
    Geometry(ID3D11Device* device, std::span<const GeometryVertex> vertices);

    ID3D11Device* Device() const { return device; }
    ID3D11Buffer* Buffer() const { return buffer.Get(); }
    std::uint64_t Count() const { return count; }

private:
    ComPtr<ID3D11Buffer> buffer;
    std::uint64_t count;
    ID3D11Device* device;
};

} // namespace Rendering::D3D11
