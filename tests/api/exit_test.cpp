// Calls before the library begins, while it ends and after its end: nothing is found, nothing can be made, nothing
// falls over. One program linked with the shared library, one with the static one, one that loads it. Each returns 1
// from main; only the checks at the very end make that 0.

#include <atomic>
#include <chrono>
#include <thread>

#include "call_at_end.h"
#include "library.h"

#ifdef LACQUER_LIBRARY_FILE
namespace {
const lacquer::Library &library = *new lacquer::Library(LACQUER_LIBRARY_FILE);
}
#else
#undef LACQUER_CALL
#undef LACQUER_GDI_CALL
#define LACQUER_CALL(function) (&::function)
#define LACQUER_GDI_CALL(function) (&::function)
#endif

// What lives when the library ends is no leak of this program.
extern "C" const char *__asan_default_options() { return "detect_leaks=0"; }

namespace {

constexpr RECT kRect{1, 1, 7, 6};

/// What is alive when the library ends.
struct Objects {
    HGBITMAP bitmap{}, alias{};
    HGTEXTURE texture{};
    HGCANVAS canvas{}, system{}, parent{};
    HDC dc = nullptr;
    HRGN region = nullptr;
} alive;

void MakeObjects() {
    alive.bitmap = LACQUER_CALL(CreateMemBitmap)(8, 8);
    alive.canvas = LACQUER_CALL(CreateCanvas)(8, 8, {});
    alive.system = LACQUER_CALL(CreateSystemCanvas)(8, 8, {});
    LACQUER_CALL(SetCanvasParent)(alive.canvas, alive.system);
    alive.parent = LACQUER_CALL(GetCanvasParent)(alive.canvas);
    alive.alias = LACQUER_CALL(GetBitmap)(alive.canvas);
    alive.texture = LACQUER_CALL(GetTexture)(alive.canvas);
    alive.dc = LACQUER_CALL(GetCanvasHandle)(alive.canvas);
    alive.region = LACQUER_GDI_CALL(CreateRectRgn)(0, 0, 5, 5);
}

bool NothingCanBeMade() {
    int object = 0;
    return !LACQUER_CALL(CreateSystemBitmap)(8, 8) && !LACQUER_CALL(CreateMemBitmap)(1024, 1024) &&
           !LACQUER_CALL(CreateTexture)(8, 8) && !LACQUER_CALL(CreateCanvas)(8, 8, alive.canvas) &&
           LACQUER_CALL(e_NewHandleEntry)(nullptr, 2, &object) == 0;
}

bool NothingIsFound() {
    SurfaceView view{};
    const bool found = LACQUER_CALL(LockBitmapBits)(alive.bitmap, &view, nullptr) != 0 ||
                       LACQUER_CALL(GetCanvasParent)(alive.canvas) || LACQUER_CALL(CanvasToBitmap)(alive.canvas) ||
                       LACQUER_CALL(DrawBitmap)(alive.canvas, &kRect, alive.bitmap, 0) != 0 ||
                       LACQUER_CALL(e_DelHandleEntry)(nullptr, static_cast<DWORD>(alive.bitmap.value)) != 0;
    LACQUER_CALL(ReleaseBitmap)(alive.alias);
    LACQUER_CALL(ReleaseCanvas)(alive.parent);
    LACQUER_CALL(DeleteTexture)(alive.texture);
    LACQUER_CALL(DeleteBitmap)(alive.bitmap);
    LACQUER_CALL(DeleteCanvas)(alive.canvas);
    LACQUER_CALL(DeleteCanvas)(alive.system);
    return !found;
}

/// The headless GDI ends with the library; that of Windows goes on.
bool GdiHasEnded() {
#ifdef _WIN32
    return true;
#else
    RECT box{};
    return !LACQUER_GDI_CALL(CreateCompatibleDC)(nullptr) && !LACQUER_GDI_CALL(CreateRectRgn)(0, 0, 2, 2) &&
           !LACQUER_GDI_CALL(CreateBitmap)(0, 0, 1, 1, nullptr) &&
           LACQUER_GDI_CALL(GetRgnBox)(alive.region, &box) == ERROR &&
           !LACQUER_GDI_CALL(PatBlt)(alive.dc, 0, 0, 8, 8, WHITENESS) && !LACQUER_GDI_CALL(DeleteDC)(alive.dc) &&
           !LACQUER_GDI_CALL(DeleteObject)(alive.region);
#endif
}

bool EverythingIsRefused() { return NothingCanBeMade() && NothingIsFound() && GdiHasEnded(); }

std::atomic<bool> ended{false}, threadIsFine{false};

/// Calls without a pause, before the library begins (where that can be), while it ends and after. Windows ends the
/// thread wherever it is: there it stays out of the heap and of GDI, whose locks would stay held for good (a program
/// that has no other library than GDI sometimes hangs under Wine when a thread ends inside it).
void CallUntilTheEnd() {
    int object = 0;
    while (!ended) {
        SurfaceView view{};
        LACQUER_CALL(LockBitmapBits)(HGBITMAP{0x01027FFF}, &view, nullptr);
        LACQUER_CALL(e_DelHandleEntry)(nullptr, LACQUER_CALL(e_NewHandleEntry)(nullptr, 9, &object));
#ifndef _WIN32
        const HGCANVAS canvas = LACQUER_CALL(CreateCanvas)(8, 8, {});
        LACQUER_CALL(FillSolidRect)(canvas, 0x80402010, &kRect);
        LACQUER_GDI_CALL(DeleteDC)(LACQUER_GDI_CALL(CreateCompatibleDC)(nullptr));
        LACQUER_CALL(DeleteCanvas)(canvas);
#endif
    }
    threadIsFine = EverythingIsRefused();
}

bool CheckAfterTheEnd() {
    if (!EverythingIsRefused()) return false;
    ended = true;
#ifdef _WIN32
    // The system has ended the thread by now, wherever it was.
    return true;
#else
    using namespace std::chrono_literals;
    for (int i = 0; i < 2000 && !threadIsFine; ++i) std::this_thread::sleep_for(10ms);
    return threadIsFine;
#endif
}

#ifdef LACQUER_STATIC
/// Comes before the library and goes after it.
struct EarlyObject {
    EarlyObject() : wasRefused(NothingCanBeMade() && NothingIsFound()) { std::thread(CallUntilTheEnd).detach(); }
    ~EarlyObject() { wasRefused = wasRefused && EverythingIsRefused(); }
    bool wasRefused;
};
__attribute__((init_priority(101))) EarlyObject early;
bool CheckWithEarlyObject() { return early.wasRefused && CheckAfterTheEnd(); }
#endif

}  // namespace

int main() {
    MakeObjects();
#ifdef LACQUER_STATIC
    CheckAtTheEnd(CheckWithEarlyObject);
#else
    CheckAtTheEnd(CheckAfterTheEnd);
    std::thread(CallUntilTheEnd).detach();
#endif
    using namespace std::chrono_literals;
    std::this_thread::sleep_for(50ms);
    return 1;
}
