#include "FuzzInput.h"

#include "Rendering/GeometryLoader.h"
#include "Rendering/Memory/NullContext.h"

#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryFile file(Fuzz::Text(data, size));
    Rendering::Memory::NullContext context;
    try {
        const auto geometry = Rendering::LoadGeometryFile(context, file.Path(), false);
        const auto& vertices = dynamic_cast<const Rendering::Memory::MemoryGeometry&>(*geometry).vertices;
        Fuzz::Require(vertices.size() % 3 == 0);
    } catch (const std::out_of_range&) {
    }
    return 0;
}
