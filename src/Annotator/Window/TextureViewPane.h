#pragma once

#include "CockpitModel/NodePart.h"

#include <wx/panel.h>

namespace Annotator {

/// The page "UVs": the selected part on its texture. Texture space is the largest square at the top left.
class TextureViewPane : public wxPanel {
public:
    TextureViewPane(wxWindow* parent, wxWindowID id);

    /// The part may be null and must be valid until the next call.
    void SetPart(const CockpitModel::NodePart* newPart);

private:
    void OnPaint(wxPaintEvent& event);

    const CockpitModel::NodePart* part = nullptr;

    wxDECLARE_EVENT_TABLE();
};

} // namespace Annotator
