#include "FuzzInput.h"

#include "CockpitModel/NodePart.h"
#include "CockpitModel/Panels/PanelParts.h"
#include "CockpitModel/Panels/PanelSet.h"

using namespace CockpitModel;

/// A rectangle and triangles of arbitrary floats.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Values values(data, size);
    PanelEntry entry;
    for (float* field : {&entry.U, &entry.V, &entry.Width, &entry.Height})
        *field = values.Next<float>();
    NodePart part;
    while (!values.Empty()) {
        auto& vertex = part.vertices.emplace_back();
        for (float* field : {&vertex.position.x(), &vertex.position.y(), &vertex.position.z(), &vertex.texture.x(),
                             &vertex.texture.y()})
            *field = values.Next<float>();
    }
    std::vector<PanelPartEntry> entries;
    ClipEntryToPart(entry, part, entries);
    Fuzz::Require(entries.size() <= 1);
    for (const PanelPartEntry& made : entries)
        Fuzz::Require(!made.vertices.empty() && made.vertices.size() % 3 == 0);
    return 0;
}
