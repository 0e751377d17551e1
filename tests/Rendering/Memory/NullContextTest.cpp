#include "Rendering/Memory/NullContext.h"
#include "Rendering/ContextConformance.h"

namespace Conformance {

struct MemoryDevice {
    Rendering::Context& Context() { return context; }
    void MakeCurrent() {}

    Rendering::Memory::NullContext context;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ContextObjects, MemoryDevice);

} // namespace Conformance
