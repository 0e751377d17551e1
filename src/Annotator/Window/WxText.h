#pragma once

#include "Utils/Text.h"

#include <string>
#include <string_view>
#include <wx/string.h>

namespace Annotator {

/// A narrow text as a toolkit string. Names come unchanged from files: bytes that are not UTF-8 become replacement
/// characters, so that such a name stays visible.
inline wxString ToWide(std::string_view text) {
    const std::string readable = Utils::ToValidUtf8(text);
    return wxString::FromUTF8(readable.data(), readable.size());
}

/// Text typed by the user, as UTF-8.
inline std::string ToNarrow(const wxString& text) {
    return text.ToStdString(wxConvUTF8);
}

} // namespace Annotator
