#include "Annotator/Window/TextureViewPane.h"

#include "Annotator/UvGeometry.h"
#include "Annotator/Window/AccessibleName.h"

#include <algorithm>
#include <wx/dcclient.h>

namespace Annotator {

namespace {

void DrawGround(wxDC& dc, int side) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(*wxBLACK_BRUSH);
    dc.DrawRectangle(0, 0, side, side);
}

void DrawPanel(wxDC& dc, const std::vector<UvRectangle>& rectangles) {
    dc.SetPen(*wxBLUE_PEN);
    dc.SetBrush(*wxGREEN_BRUSH);
    for (const UvRectangle& rectangle : rectangles)
        dc.DrawRectangle(rectangle.corner.x, rectangle.corner.y, rectangle.size.x, rectangle.size.y);
}

void DrawTriangles(wxDC& dc, const std::vector<std::array<UvPoint, 3>>& triangles) {
    dc.SetPen(*wxRED_PEN);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    for (const auto& triangle : triangles) {
        wxPoint points[3];
        std::ranges::transform(triangle, points, [](const UvPoint& p) { return wxPoint(p.x, p.y); });
        dc.DrawPolygon(3, points);
    }
}

} // namespace

TextureViewPane::TextureViewPane(wxWindow* parent, wxWindowID id)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxNO_BORDER) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetAccessibleName(*this, "The part's triangles on its texture");
    // A new size scales the whole image, so the part that was already visible is redrawn too.
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh();
        event.Skip();
    });
}

void TextureViewPane::SetPart(const CockpitModel::NodePart* newPart) {
    part = newPart;
    Refresh();
}

void TextureViewPane::OnPaint(wxPaintEvent&) {
    wxPaintDC dc(this);
    const int side = std::min(GetClientSize().x, GetClientSize().y);
    dc.SetBackground(GetBackgroundColour());
    dc.Clear();
    DrawGround(dc, side);
    if (part) {
        DrawPanel(dc, UvPanelRectangles(*part, side));
        DrawTriangles(dc, UvTriangles(*part, side));
    }
}

// clang-format off
wxBEGIN_EVENT_TABLE(TextureViewPane, wxPanel)
    EVT_PAINT(TextureViewPane::OnPaint)
wxEND_EVENT_TABLE()

} // namespace Annotator
