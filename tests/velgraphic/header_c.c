/* The public header alone in C11: layouts. tests/install has a whole program in C. */
#include <velgraphic/velgraphic.h>

_Static_assert(sizeof(velPointF) == 8 && sizeof(velRectF) == 16, "two and four floats");
_Static_assert(offsetof(velBitmapData, width) == 0 && offsetof(velBitmapData, height) == 4,
               "the layout of velBitmapData");
_Static_assert(offsetof(velBitmapData, stride) == 8 && offsetof(velBitmapData, bits) == 16,
               "the layout of velBitmapData");
_Static_assert(sizeof(velBitmapData) == 24, "the layout of velBitmapData");
_Static_assert(sizeof(velLottieInfo) == 16 && offsetof(velLottieInfo, frameCount) == 8, "the layout of velLottieInfo");
