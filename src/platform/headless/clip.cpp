// The clip region of a device context.
#include "platform/headless/gdi_objects.h"

namespace lacquer::headless {
namespace {

/// Combines the clip region with `operand`; without a clip region `unclipped` stands for it. ERROR, with nothing
/// changed, when memory is short.
int CombineClip(DrawState &state, const RECT &unclipped, const Region &operand, int mode) {
    if (!state.hasClip) state.clip.SetRect(unclipped);
    if (!state.clip.Combine(state.clip, operand, mode)) return ERROR;
    state.hasClip = true;
    return state.clip.Kind();
}

int RemoveClip(DrawState &state) {
    state.hasClip = false;
    state.clip.SetRect(RECT{});
    return SIMPLEREGION;
}

int CopyClip(DrawState &state, const Region &region) {
    if (!state.clip.Copy(region)) return ERROR;
    state.hasClip = true;
    return state.clip.Kind();
}

}  // namespace

}  // namespace lacquer::headless

using namespace lacquer::headless;

int GetClipBox(HDC dc, RECT *out) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    Region visible;
    if (!context || !out || !context->VisiblePart(context->BitmapRect(), visible)) return ERROR;
    const RECT box = visible.Bounds();
    const int64_t x = context->OffsetX();
    const int64_t y = context->OffsetY();
    *out = RECT{Clamped(box.left - x), Clamped(box.top - y), Clamped(box.right - x), Clamped(box.bottom - y)};
    return visible.Kind();
}

int GetClipRgn(HDC dc, HRGN region) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context) return -1;
    if (!context->state.hasClip) return 0;
    Region *out = FindRegion(region);
    return out && out->Copy(context->state.clip) ? 1 : -1;
}

int SelectClipRgn(HDC dc, HRGN region) { return ExtSelectClipRgn(dc, region, RGN_COPY); }

int ExtSelectClipRgn(HDC dc, HRGN region, int mode) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return ERROR;
    DrawState &state = context->state;
    if (!region) return mode == RGN_COPY ? RemoveClip(state) : ERROR;
    const Region *operand = FindRegion(region);
    if (!operand || mode < RGN_AND || mode > RGN_COPY) return ERROR;
    return mode == RGN_COPY ? CopyClip(state, *operand) : CombineClip(state, context->BitmapRect(), *operand, mode);
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return ERROR;
    const RECT rect = context->ToDevice(RECT{left, top, right, bottom});
    Region operand;
    operand.SetRect(rect);
    return CombineClip(context->state, rect, operand, RGN_AND);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return ERROR;
    Region operand;
    operand.SetRect(context->ToDevice(RECT{left, top, right, bottom}));
    return CombineClip(context->state, context->BitmapRect(), operand, RGN_DIFF);
}

int OffsetClipRgn(HDC dc, int x, int y) {
    GdiLock lock;
    DeviceContext *context = FindDC(dc);
    if (!context) return ERROR;
    DrawState &state = context->state;
    if (!state.hasClip) return NULLREGION;
    return state.clip.Offset(x, y) ? state.clip.Kind() : ERROR;
}

BOOL PtVisible(HDC dc, int x, int y) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    return context && context->IsVisible(x + context->OffsetX(), y + context->OffsetY());
}

BOOL RectVisible(HDC dc, const RECT *rect) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    Region visible;
    return context && rect && context->VisiblePart(context->ToDevice(*rect), visible) && visible.Kind() != NULLREGION;
}
