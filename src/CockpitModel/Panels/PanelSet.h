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

/// A 2D panel shown on a texture.
struct Panel {
    /// Appends, for a part that shows this panel, the visible area of each entry, in order.
    void ProduceEntries(const NodePart& part, std::vector<PanelPartEntry>& out) const;

    std::string Texture; ///< lower case
    std::vector<PanelEntry> Entries;
};

/// The panels of one aircraft by texture. A scene graph keeps a plain pointer to its set, which must neither move nor
/// change after reading while the graph lives.
class PanelSet {
public:
    PanelSet() = default;
    PanelSet(const PanelSet&) = delete;
    PanelSet& operator=(const PanelSet&) = delete;

    /// Clears the set and fills it from the "vcockpit" sections of a panel configuration; of two with the same texture
    /// the later counts. A failed stream leaves the set empty without an error.
    void Read(std::istream& stream, GaugeRepository& repository);
    /// Null if the texture shows no panel. Ignores case.
    Panel* Find(const std::string& textureName) const;
    const std::unordered_map<std::string, std::unique_ptr<Panel>>& Panels() const { return panels; }

private:
    std::unordered_map<std::string, std::unique_ptr<Panel>> panels;
};

} // namespace CockpitModel
