// Which sanitizer the code is compiled for: gcc defines a macro, clang has a feature.
#pragma once

namespace lacquer {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kHasAddressSanitizer = true;
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif

}  // namespace lacquer
