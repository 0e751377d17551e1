#pragma once

#include <wx/defs.h>

namespace Annotator {

/// Whether a key belongs to the commands of the menus.
constexpr bool IsCommandKey(int keyCode) {
    return keyCode >= WXK_F3 && keyCode <= WXK_F8;
}

} // namespace Annotator
