#include "Rendering/ContextConformance.h"
#include "Rendering/OpenGL/EglDevice.h"
#include "Rendering/PictureConformance.h"

namespace Conformance {

INSTANTIATE_TYPED_TEST_SUITE_P(OpenGL, ContextObjects, EglDevice);
INSTANTIATE_TYPED_TEST_SUITE_P(OpenGL, ContextPictures, EglDevice);

} // namespace Conformance
