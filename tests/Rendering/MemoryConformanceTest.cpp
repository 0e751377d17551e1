#include "Rendering/ContextConformance.h"
#include "Rendering/Memory/MemoryContext.h"

namespace Conformance {

class MemoryDevice {
public:
    Rendering::Context& Context() { return context; }
    void MakeCurrent() {}

private:
    Rendering::Memory::MemoryContext context;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ContextObjects, MemoryDevice);

} // namespace Conformance
