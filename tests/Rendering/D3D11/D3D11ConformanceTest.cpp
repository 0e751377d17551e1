#include "Rendering/ContextConformance.h"
#include "Rendering/D3D11/D3D11Device.h"
#include "Rendering/PictureConformance.h"

namespace Conformance {

INSTANTIATE_TYPED_TEST_SUITE_P(D3D11, ContextObjects, D3D11Device);
INSTANTIATE_TYPED_TEST_SUITE_P(D3D11, ContextPictures, D3D11Device);

} // namespace Conformance
