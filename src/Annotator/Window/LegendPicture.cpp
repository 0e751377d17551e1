#include "Annotator/Window/LegendPicture.h"

#include "Annotator/Window/WxText.h"

#include <algorithm>
#include <wx/dcmemory.h>
#include <wx/image.h>

namespace Annotator {

namespace {

wxColour ToColour(const Utils::Vector3& colour) {
    const auto byte = [](float share) { return static_cast<unsigned char>(std::lround(255.0f * share)); };
    return {byte(colour.x()), byte(colour.y()), byte(colour.z())};
}

Rendering::MemBitmap ToPixels(const wxBitmap& bitmap) {
    const wxImage image = bitmap.ConvertToImage();
    Rendering::MemBitmap pixels(static_cast<std::uint64_t>(image.GetWidth()),
                                static_cast<std::uint64_t>(image.GetHeight()));
    const unsigned char* rgb = image.GetData();
    for (std::uint32_t& pixel : pixels.Pixels()) {
        pixel = 0xFF000000 | std::uint32_t{rgb[0]} << 16 | std::uint32_t{rgb[1]} << 8 | rgb[2];
        rgb += 3;
    }
    return pixels;
}

} // namespace

Rendering::MemBitmap LegendPicture(const wxWindow& window, const std::vector<LegendEntry>& entries) {
    if (entries.empty())
        return {};
    const wxFont font = window.GetFont().Scaled(static_cast<float>(window.GetContentScaleFactor()));
    wxBitmap bitmap(1, 1);
    wxMemoryDC dc(bitmap);
    dc.SetFont(font);
    const int line = dc.GetCharHeight(), gap = line / 2;
    int textWidth = 0;
    for (const LegendEntry& entry : entries)
        textWidth = std::max(textWidth, dc.GetTextExtent(ToWide(entry.text)).x);

    // A new bitmap has the same depth and can be selected once the first one is not.
    dc.SelectObject(wxNullBitmap);
    bitmap.Create(3 * gap + line + textWidth, static_cast<int>(entries.size()) * (line + gap) + gap);
    dc.SelectObject(bitmap);
    // The same in a dark theme, because the view around it is the same too.
    dc.SetPen(*wxBLACK_PEN);
    dc.SetBrush(*wxWHITE_BRUSH);
    dc.DrawRectangle({0, 0}, bitmap.GetSize());
    dc.SetFont(font);
    dc.SetTextForeground(*wxBLACK);
    int y = gap;
    for (const LegendEntry& entry : entries) {
        dc.SetBrush(ToColour(entry.colour));
        dc.DrawRectangle(gap, y, line, line);
        dc.DrawText(ToWide(entry.text), 2 * gap + line, y);
        y += line + gap;
    }
    dc.SelectObject(wxNullBitmap);
    return ToPixels(bitmap);
}

} // namespace Annotator
