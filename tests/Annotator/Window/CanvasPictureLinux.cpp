#include "Annotator/Window/CanvasPicture.h"

#include <cairo.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>

namespace Support {

wxImage CanvasPicture(Annotator::DXCanvas& canvas) {
    const wxSize size = canvas.GetClientSize();
    const wxPoint at = canvas.ClientToScreen(wxPoint(0, 0));
    wxScreenDC screen;
    // The screen has changed without cairo's knowledge, which caches what it has read.
    cairo_surface_mark_dirty(cairo_get_target(static_cast<cairo_t*>(screen.GetImpl()->GetCairoContext())));
    wxBitmap picture(size);
    wxMemoryDC target(picture);
    target.Blit(0, 0, size.x, size.y, &screen, at.x, at.y);
    target.SelectObject(wxNullBitmap);
    return picture.ConvertToImage();
}

void SendKey(Annotator::DXCanvas& canvas, int code, bool down) {
    wxKeyEvent event(down ? wxEVT_KEY_DOWN : wxEVT_KEY_UP);
    event.m_keyCode = code;
    canvas.ProcessWindowEvent(event);
}

} // namespace Support
