#include "Annotator/Window/AircraftSelectorDropdown.h"

#include "Annotator/Window/AccessibleName.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace Annotator {

namespace {

std::vector<Sim::AircraftInfo*> PlainPointers(const Sim::AircraftList& list) {
    std::vector<Sim::AircraftInfo*> pointers;
    pointers.reserve(list.size());
    for (const auto& info : list)
        pointers.push_back(info.get());
    return pointers;
}

} // namespace

AircraftSelectorDropdown::AircraftSelectorDropdown(Sim::AircraftListLoader* loader, wxWindow* parent, wxWindowID id)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxNO_BORDER),
      dropDown(new ItemDropDown<Sim::AircraftInfo*>(this, wxID_ANY, "Select an aircraft...",
                                                    [](Sim::AircraftInfo* const& info) { return info->displayName; })) {
    auto* sizer = new wxBoxSizer(wxHORIZONTAL);
    SetSizer(sizer);
    sizer->AddSpacer(5);
    sizer->Add(new wxStaticText(this, wxID_ANY, "Aircraft:  "), 0);
    sizer->AddSpacer(5);
    sizer->Add(dropDown, 1, wxEXPAND);
    sizer->AddSpacer(5);
    SetAccessibleName(*dropDown, "Aircraft");

    aircraft = loader->LoadAircraftList();
    dropDown->SetItems(PlainPointers(aircraft));
    dropDown->selectionSignal.connect([this](const boost::optional<Sim::AircraftInfo*>& selected) {
        if (selected)
            aircraftSelectedSignal(**selected);
    });
}

} // namespace Annotator
