#pragma once

#include "Annotator/Window/Page.h"
#include "CockpitModel/NodePart.h"

namespace Annotator {

/// The page "Info": what the files and the detection say of the part on show.
class PartInfoPane : public Page {
public:
    PartInfoPane(wxWindow* parent, wxWindowID id);

    /// The part, which may be null, is not kept.
    void SetPart(const CockpitModel::NodePart* part);

private:
    wxStaticText* idLabel; ///< bold
    wxStaticText* offsetLabel;
    wxStaticText* materialLabel;
    wxStaticText* detectedLabel;
    wxStaticText* infoText;
    wxStaticText* baseDataText;
};

} // namespace Annotator
