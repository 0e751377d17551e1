#pragma once

namespace Support {

/// Whether memory is the sanitizers', which count and limit it in their own way.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

} // namespace Support
