// The exported functions of canvases.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "api/surface_exports.h"

using namespace lacquer;

namespace {

HGCANVAS RegisterLike(std::unique_ptr<Canvas> canvas, HGCANVAS template_) {
    const Canvas *model = Find(template_);
    if (canvas && model) canvas->SetFilter(model->Filter());
    return Register(std::move(canvas));
}

}  // namespace

HGCANVAS CreateCanvas(DWORD width, DWORD height, HGCANVAS template_) {
    return RegisterLike(MakeCanvas(width, height, SurfaceKind::Memory), template_);
}

HGCANVAS CreateSystemCanvas(DWORD width, DWORD height, HGCANVAS template_) {
    return RegisterLike(MakeCanvas(width, height, SurfaceKind::System), template_);
}

HGCANVAS CreateCanvasFromDC(HDC dc) { return Register(MakeCanvasFromDC(dc)); }

void DeleteCanvas(HGCANVAS canvas) {
    std::unique_ptr<Canvas> taken;
    HeldTable table(ProcessHandleTable());
    taken = Take(table, canvas);
    if (taken) table.Revoke(taken->Surface());
}

DWORD ReleaseCanvas(HGCANVAS canvas) {
    const DWORD type = static_cast<DWORD>(canvas.value) & kHandleTypeMask;
    if (type != TypeBits(HandleType::Canvas)) return type;
    return ReleaseHandle(HandleType::Canvas, canvas.value);
}

int LockCanvasBits(HGCANVAS canvas, SurfaceView *out, const RECT *rect) { return LockBits(Find(canvas), out, rect); }

int LockCanvasBitsEx(HGCANVAS canvas, SurfaceView *out, const RECT *rect) {
    return LockBitsEx(Find(canvas), out, rect);
}

int UnlockCanvasBits(HGCANVAS canvas) { return UnlockBits(Find(canvas)); }

HDC GetCanvasHandle(HGCANVAS canvas) {
    Canvas *found = Find(canvas);
    return found ? found->GetDeviceContext() : nullptr;
}

int GetCanvasSize(HGCANVAS canvas, SIZE *out) {
    const Canvas *found = Find(canvas);
    return found && out && found->GetSize(out);
}

int SetViewportOrg(HGCANVAS canvas, int x, int y, POINT *previous) {
    Canvas *found = Find(canvas);
    return found && found->SetViewportOrg(x, y, previous);
}

int GetViewportOrg(HGCANVAS canvas, POINT *out) {
    const Canvas *found = Find(canvas);
    if (!found || !out) return 0;
    *out = found->ViewportOrg();
    return 1;
}

int SetWindowOrg(HGCANVAS canvas, int x, int y, POINT *previous) {
    Canvas *found = Find(canvas);
    return found && found->SetWindowOrg(x, y, previous);
}

int GetWindowOrg(HGCANVAS canvas, POINT *out) {
    const Canvas *found = Find(canvas);
    if (!found || !out) return 0;
    *out = found->WindowOrg();
    return 1;
}

HWND SetCanvasWindow(HGCANVAS canvas, HWND window) {
    Canvas *found = Find(canvas);
    if (!found) return nullptr;
    HWND previous = found->Window();
    found->SetWindow(window);
    return previous;
}

HWND GetCanvasWindow(HGCANVAS canvas) {
    const Canvas *found = Find(canvas);
    return found ? found->Window() : nullptr;
}

int SetCanvasParent(HGCANVAS canvas, HGCANVAS parent) {
    // Allocated before and freed after the table is held.
    const Ref<CanvasAnchor> spare = NewAnchor();
    Ref<CanvasAnchor> dropped;
    const HeldTable table(ProcessHandleTable());
    Canvas *found = Find(table, canvas), *foundParent = Find(table, parent);
    if (!found || !foundParent || !spare) return 0;
    dropped = found->SetParent(*foundParent, spare);
    return 1;
}

HGCANVAS GetCanvasParent(HGCANVAS canvas) {
    HeldTable table(ProcessHandleTable());
    const Canvas *found = Find(table, canvas);
    return {RegisterAlias(table, HandleType::Canvas, found ? found->Parent() : nullptr)};
}

int GetCanvasFilter(HGCANVAS canvas, DWORD *out) {
    const Canvas *found = Find(canvas);
    if (!found || !out) return 0;
    *out = found->Filter();
    return 1;
}

int SetCanvasFilter(HGCANVAS canvas, DWORD filter) {
    Canvas *found = Find(canvas);
    return found && found->SetFilter(filter);
}

int SetCanvasBkColor(HGCANVAS canvas, DWORD colour, DWORD *previous) {
    Canvas *found = Find(canvas);
    if (!found) return 0;
    if (previous) *previous = found->BkColor();
    found->SetBkColor(colour);
    return 1;
}

int GetCanvasBkColor(HGCANVAS canvas, DWORD *out) {
    const Canvas *found = Find(canvas);
    if (!found || !out) return 0;
    *out = found->BkColor();
    return 1;
}

int SetCanvasClipRect(HGCANVAS canvas, const RECT *rect) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    found->SetClip(*rect);
    return 1;
}

int IntersectCanvasClipRect(HGCANVAS canvas, const RECT *rect) {
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    found->IntersectClip(*rect);
    return 1;
}

int GetCanvasClipRect(HGCANVAS canvas, RECT *out) {
    const Canvas *found = Find(canvas);
    if (!found || !out) return 0;
    *out = found->ClipBox();
    return 1;
}

HGBITMAP GetBitmap(HGCANVAS canvas) {
    HeldTable table(ProcessHandleTable());
    Canvas *found = Find(table, canvas);
    return {RegisterAlias(table, HandleType::Bitmap, found ? found->Surface() : nullptr)};
}
