#include "FuzzInput.h"

#include "CockpitModel/Panels/PanelSet.h"
#include "Support/TestGaugeFile.h"

#include <sstream>

namespace {

using namespace CockpitModel;

/// A gauge of each kind of mouse area, under the name that the corpus uses.
void AddGauges(GaugeRepository& repository) {
    auto file = std::make_unique<Support::TestGaugeFile>();
    Gauge& gauge = file->gauges["altimeter"];
    gauge.NativeSize = {100, 100};
    gauge.Size = {50, 50};
    gauge.MouseAreas = {Support::CodeArea(0, 0, 20, 20, "(M:Event) 'WheelUp' scmp", 0x00006000),
                        Support::PairArea(20, 20, 200, 10, "dec", "inc")};
    repository.Add("gauges.cab", std::move(file));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(Fuzz::Text(data, size));
    ParseGaugeLine(text);
    GaugeRepository repository("root");
    AddGauges(repository);
    std::istringstream stream(text);
    PanelSet panels;
    panels.Read(stream, repository);
    for (const auto& [texture, panel] : panels.Panels()) {
        Fuzz::Require(panel->Texture == texture && panels.Find(texture) == panel.get());
        for (const PanelEntry& entry : panel->Entries)
            Fuzz::Require(entry.Rect.EventCallback || entry.Rect.VariableCallback);
    }
    return 0;
}
