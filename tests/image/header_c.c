/* The public header in C11: layouts. tests/install has a whole program in C. */
#include <lacquer/image.h>

_Static_assert(sizeof(ImageFileInfo) == 28 && offsetof(ImageFileInfo, isAnimated) == 24, "the layout of ImageFileInfo");
_Static_assert(sizeof(ImageLoadOptions) == 16 && offsetof(ImageLoadOptions, maxBytes) == 8, "of ImageLoadOptions");
