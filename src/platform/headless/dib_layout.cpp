// Reading a caller's BITMAPINFO.
#include "platform/headless/dib_layout.h"

#include <cstdint>

namespace lacquer::headless {

bool ReadDibLayout(const BITMAPINFO *info, DibLayout &out) {
    if (!info) return false;
    const BITMAPINFOHEADER &header = info->bmiHeader;
    const WORD depth = header.biBitCount;
    if (header.biSize != sizeof(header) || header.biPlanes != 1 || header.biCompression != BI_RGB) return false;
    if (depth != 8 && depth != 16 && depth != 24 && depth != 32) return false;
    if (header.biWidth <= 0 || header.biHeight == 0 || header.biHeight == INT32_MIN) return false;
    out.width = header.biWidth;
    out.height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
    out.bitsPerPixel = depth;
    out.topDown = header.biHeight < 0;
    out.colours = info->bmiColors;
    out.colourCount = 0;
    if (depth == 8) out.colourCount = header.biClrUsed == 0 || header.biClrUsed > 256 ? 256 : header.biClrUsed;
    return true;
}

}  // namespace lacquer::headless
