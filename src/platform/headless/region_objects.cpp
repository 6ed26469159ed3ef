// The functions of region handles.
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/headless/gdi_objects.h"

namespace lacquer::headless {
namespace {

constexpr DWORD kDataHeaderSize = sizeof(RGNDATAHEADER);
static_assert(kDataHeaderSize == 32 && sizeof(RECT) == sizeof(pixman_box32_t));

std::unique_ptr<Region> NewRegion() { return std::unique_ptr<Region>(new (std::nothrow) Region); }

}  // namespace

}  // namespace lacquer::headless

using namespace lacquer::headless;

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    std::unique_ptr<Region> region = NewRegion();
    if (!region) return nullptr;
    region->SetRect(Ordered(RECT{left, top, right, bottom}));
    GdiLock lock;
    return AddRegion(std::move(region));
}

HRGN CreateRectRgnIndirect(const RECT *rect) {
    return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

HRGN ExtCreateRegion(const void *transform, DWORD size, const RGNDATA *data) {
    if (transform || !data || size < kDataHeaderSize) return nullptr;
    const RGNDATAHEADER &header = data->rdh;
    if (header.dwSize != kDataHeaderSize || header.iType != RDH_RECTANGLES) return nullptr;
    if (header.nCount > (size - kDataHeaderSize) / sizeof(RECT) || header.nCount > INT32_MAX) return nullptr;
    std::unique_ptr<Region> region = NewRegion();
    if (!region) return nullptr;
    if (header.nCount > 0) {
        // The caller's buffer need not be aligned for boxes.
        MallocPtr<pixman_box32_t> boxes(
            static_cast<pixman_box32_t *>(std::malloc(header.nCount * sizeof(pixman_box32_t))));
        if (!boxes) return nullptr;
        std::memcpy(boxes.get(), data->Buffer, header.nCount * sizeof(pixman_box32_t));
        if (!region->SetBoxes(boxes.get(), static_cast<int>(header.nCount))) return nullptr;
    }
    GdiLock lock;
    return AddRegion(std::move(region));
}

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom) {
    GdiLock lock;
    Region *target = FindRegion(region);
    if (!target) return FALSE;
    target->SetRect(Ordered(RECT{left, top, right, bottom}));
    return TRUE;
}

int CombineRgn(HRGN dest, HRGN source1, HRGN source2, int mode) {
    GdiLock lock;
    Region *target = FindRegion(dest);
    const Region *first = FindRegion(source1);
    if (!target || !first) return ERROR;
    if (mode == RGN_COPY) return target->Copy(*first) ? target->Kind() : ERROR;
    const Region *second = FindRegion(source2);
    return second && target->Combine(*first, *second, mode) ? target->Kind() : ERROR;
}

DWORD GetRegionData(HRGN region, DWORD size, RGNDATA *out) {
    GdiLock lock;
    const Region *source = FindRegion(region);
    if (!source) return 0;
    int count = 0;
    const pixman_box32_t *boxes = source->Boxes(count);
    const size_t boxBytes = static_cast<size_t>(count) * sizeof(RECT);
    const size_t needed = kDataHeaderSize + boxBytes;
    if (needed > UINT32_MAX) return 0;
    if (!out) return static_cast<DWORD>(needed);
    if (size < needed) return 0;
    const RGNDATAHEADER header{kDataHeaderSize, RDH_RECTANGLES, static_cast<DWORD>(count), static_cast<DWORD>(boxBytes),
                               source->Bounds()};
    std::memcpy(out, &header, kDataHeaderSize);
    if (count > 0) std::memcpy(reinterpret_cast<char *>(out) + kDataHeaderSize, boxes, boxBytes);
    return static_cast<DWORD>(needed);
}

int GetRgnBox(HRGN region, RECT *out) {
    GdiLock lock;
    const Region *source = FindRegion(region);
    if (!source || !out) return ERROR;
    *out = source->Bounds();
    return source->Kind();
}

BOOL EqualRgn(HRGN first, HRGN second) {
    GdiLock lock;
    const Region *a = FindRegion(first);
    const Region *b = FindRegion(second);
    return a && b && a->Equals(*b);
}

int OffsetRgn(HRGN region, int x, int y) {
    GdiLock lock;
    Region *target = FindRegion(region);
    return target && target->Offset(x, y) ? target->Kind() : ERROR;
}

BOOL PtInRegion(HRGN region, int x, int y) {
    GdiLock lock;
    const Region *source = FindRegion(region);
    return source && source->Contains(x, y);
}

BOOL RectInRegion(HRGN region, const RECT *rect) {
    GdiLock lock;
    const Region *source = FindRegion(region);
    return source && rect && source->Touches(Ordered(*rect));
}
