#pragma once

#include "CockpitModel/Panels/GaugeRepository.h"
#include "CockpitModel/Touch/MouseRect.h"

#include <istream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace CockpitModel {

struct NodePart;
struct PanelPartEntry;

/// A clickable rectangle on a panel's texture, in texture coordinates: 0 to 1 over the panel.
struct PanelEntry {
    float U = 0, V = 0;
    float Width = 0, Height = 0;
    MouseRect Rect;
};

/// A 2D panel that a texture shows.
struct Panel {
    /// Appends what a part that shows this panel shows of each entry, in their order.
    void ProduceEntries(const NodePart& part, std::vector<PanelPartEntry>& out) const;

    std::string Texture; ///< lower case
    std::vector<PanelEntry> Entries;
};

/// The panels of one aircraft by texture. A scene graph keeps a plain pointer to its set, which keeps its address as
/// long as the graph lives and does not change after it was read.
class PanelSet {
public:
    PanelSet() = default;
    PanelSet(const PanelSet&) = delete;
    PanelSet& operator=(const PanelSet&) = delete;

    /// Clears the set and fills it from the "vcockpit" sections of a panel configuration; of two with the same texture
    /// the later one counts. A failed stream leaves the set empty; nothing is reported.
    void Read(std::istream& stream, GaugeRepository& repository);
    /// Null when no panel shows on the texture. Takes no notice of case.
    Panel* Find(const std::string& textureName) const;
    const std::unordered_map<std::string, std::unique_ptr<Panel>>& Panels() const { return panels; }

private:
    std::unordered_map<std::string, std::unique_ptr<Panel>> panels;
};

} // namespace CockpitModel
