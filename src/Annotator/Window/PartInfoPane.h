#pragma once

#include "Annotator/Window/Page.h"
#include "CockpitModel/NodePart.h"

namespace Annotator {

/// The page "Info": data of the selected part from the files and the detection.
class PartInfoPane : public Page {
public:
    PartInfoPane(wxWindow* parent, wxWindowID id);

    /// The part may be null and is not stored.
    void SetPart(const CockpitModel::NodePart* part);

private:
    void ShowManipulator(const std::string& text);

    wxStaticText* idLabel; ///< bold
    wxStaticText* offsetLabel;
    wxStaticText* materialLabel;
    wxStaticText* detectedLabel;
    wxStaticText* infoText;
    wxStaticText* baseDataText;
    wxStaticText* manipulatorHeading = nullptr;
    wxStaticText* manipulatorText = nullptr;
};

} // namespace Annotator
