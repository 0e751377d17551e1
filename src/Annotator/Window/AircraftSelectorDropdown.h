#pragma once

#include "Annotator/Window/ItemDropDown.h"
#include "Sim/AircraftListLoader.h"

#include <boost/signals2/signal.hpp>
#include <wx/panel.h>

namespace Annotator {

/// The line above the window's content in which a person picks an aircraft. It reads the list once, at construction,
/// and keeps it, so that a record that was signalled stays valid as long as the selector.
class AircraftSelectorDropdown : public wxPanel {
public:
    /// What the scan throws passes through.
    AircraftSelectorDropdown(Sim::AircraftListLoader* loader, wxWindow* parent, wxWindowID id);

    boost::signals2::signal<void(const Sim::AircraftInfo&)> aircraftSelectedSignal;

private:
    Sim::AircraftList aircraft;
    ItemDropDown<Sim::AircraftInfo*>* dropDown;
};

} // namespace Annotator
