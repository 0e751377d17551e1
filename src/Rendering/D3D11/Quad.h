#pragma once

#include "Rendering/D3D11/D3D11Call.h"

namespace Rendering::D3D11 {

/// Two triangles from (-1, -1) to (1, 1), positions only.
class Quad {
public:
    Quad(ID3D11Device* device, float z);

    void Draw(ID3D11DeviceContext* context) const;

private:
    ComPtr<ID3D11Buffer> vertices;
};

inline constexpr D3D11_INPUT_ELEMENT_DESC kQuadLayout[] = {
    {"POSITION", 0, DXGI_FORMAT_R32G32B32_FLOAT, 0, 0, D3D11_INPUT_PER_VERTEX_DATA, 0},
};

} // namespace Rendering::D3D11
