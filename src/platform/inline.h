// Demanding that a call is inlined, in the words of each compiler: for loops whose start counts where rows are short.
#pragma once

#if defined(__GNUC__)
#define LACQUER_INLINE [[gnu::always_inline]] inline
#elif defined(_MSC_VER)
#define LACQUER_INLINE __forceinline
#else
#define LACQUER_INLINE inline
#endif
