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
    Canvas *found = Find(canvas);
    if (!found) return;
    UnregisterHandle(canvas.value);
    Destroy(found);
}

DWORD ReleaseCanvas(HGCANVAS canvas) {
    const auto handle = static_cast<DWORD>(canvas.value);
    const DWORD type = handle & 0xFF0000;
    if (type != static_cast<DWORD>(HandleType::Canvas) << 16) return type;
    return Find(canvas) && ProcessHandleTable().DelHandleEntry(handle);
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
    Canvas *found = Find(canvas), *foundParent = Find(parent);
    return found && foundParent && found->SetParent(*foundParent);
}

HGCANVAS GetCanvasParent(HGCANVAS canvas) {
    const Canvas *found = Find(canvas);
    Canvas *parent = found ? found->Parent() : nullptr;
    if (!parent) return {};
    parent->MarkAliased();
    return {ProcessHandleTable().NewHandleEntry(static_cast<int>(HandleType::Canvas), parent)};
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
    Canvas *found = Find(canvas);
    PixelSurface *surface = found ? found->Surface() : nullptr;
    if (!surface) return {};
    surface->MarkAliased();
    return {ProcessHandleTable().NewHandleEntry(static_cast<int>(HandleType::Bitmap), surface)};
}
