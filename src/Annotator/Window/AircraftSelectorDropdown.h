#pragma once

#include "Annotator/Window/ItemDropDown.h"
#include "Sim/AircraftListLoader.h"

#include <boost/signals2/signal.hpp>
#include <wx/panel.h>

namespace Annotator {

/// The row at the top of the window in which the user picks an aircraft. It reads the list once, at construction, so a
/// signalled record is valid as long as the selector.
class AircraftSelectorDropdown : public wxPanel {
public:
    /// Exceptions of the scan are not caught.
    AircraftSelectorDropdown(Sim::AircraftListLoader* loader, wxWindow* parent, wxWindowID id);

    boost::signals2::signal<void(const Sim::AircraftInfo&)> aircraftSelectedSignal;

private:
    Sim::AircraftList aircraft;
    ItemDropDown<Sim::AircraftInfo*>* dropDown;
};

} // namespace Annotator
