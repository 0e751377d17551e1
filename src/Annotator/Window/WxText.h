#pragma once

#include "Utils/Text.h"

#include <string>
#include <string_view>
#include <wx/string.h>

namespace Annotator {

/// A narrow text as the toolkit shows it. Names come from files as they stand: bytes that are no UTF-8 are shown as
/// replacement characters, so that such a name is seen and not lost.
inline wxString ToWide(std::string_view text) {
    const std::string readable = Utils::ToValidUtf8(text);
    return wxString::FromUTF8(readable.data(), readable.size());
}

/// What a person typed, as UTF-8.
inline std::string ToNarrow(const wxString& text) {
    return text.ToStdString(wxConvUTF8);
}

} // namespace Annotator
