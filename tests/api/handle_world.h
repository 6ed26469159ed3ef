// Objects of every type that wrong handles must not touch, the wrong handles themselves, and records that a refused
// call must not write.
#pragma once

#include <array>
#include <vector>

#include "objects.h"

namespace lacquer {

/// What a call may write to, filled with a pattern before it.
struct OutRecords {
    SurfaceView view;
    TextureMode mode;
    RECT rect;
    SIZE size;
    POINT point;
    DWORD word;
    BYTE byte;

    void Reset();
    bool IsUntouched() const;
};

/// The records that all calls use.
extern OutRecords out;

/// What a handle's upper half may hold.
constexpr uintptr_t kUpperGarbage = static_cast<uintptr_t>(0xDEADBEEF12345678) & ~static_cast<uintptr_t>(0xFFFFFFFF);

/// Two live objects of each type, and handles that are no longer current.
class HandleWorld {
public:
    HandleWorld();
    ~HandleWorld();
    HandleWorld(const HandleWorld &) = delete;
    HandleWorld &operator=(const HandleWorld &) = delete;

    /// A live handle for an argument: 'c', 'b', 't', 'p' and 'a' for aliases of a canvas and of its surface, or 'e' for
    /// an entry made by hand. `argument`, 0 or 1: its place among the handle arguments.
    uintptr_t Valid(char letter, size_t argument) const;

    /// Everything that must be refused for such an argument.
    std::vector<uintptr_t> Wrong(char letter, size_t argument) const;

    /// Everything that can be read of the objects, and the slot that the next object would take.
    std::vector<uint32_t> Snapshot() const;

private:
    static constexpr LONG kSide = 4;
    static constexpr size_t kTypes = 3;

    std::array<OwnedBitmap, 2> bitmaps_{NoisyBitmap(kSide, kSide, 1), NoisyBitmap(kSide, kSide, 2)};
    std::array<OwnedTexture, 2> textures_{NoisyTexture(kSide, kSide, 3), NoisyTexture(kSide, kSide, 4)};
    std::array<OwnedCanvas, 2> canvases_{NoisyCanvas(kSide, kSide, 5),
                                         OwnedCanvas(CreateSystemCanvas(kSide, kSide, HGCANVAS{}))};
    std::array<uintptr_t, kTypes> freed_{}, reused_{}, replacements_{};
    HGCANVAS canvasAlias_{};
    HGBITMAP bitmapAlias_{};
    DWORD entry_ = 0;
};

}  // namespace lacquer
