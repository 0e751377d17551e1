#pragma once

namespace Support {

/// Whether a sanitizer is active, which replaces the allocator and its limits.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

} // namespace Support
