// Objects of every type, which calls are made with and which wrong handles must not touch, and the wrong handles.
#pragma once

#include <velgraphic/velgraphic.hpp>

#include <array>
#include <vector>

#include "exported_calls.h"
#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {

/// What a handle's upper half may hold.
constexpr uintptr_t kUpperGarbage = static_cast<uintptr_t>(0xDEADBEEF12345678) & ~static_cast<uintptr_t>(0xFFFFFFFF);

/// Whether a letter stands for a handle of the library.
constexpr bool IsHandle(char letter) { return std::string_view("cbtpae").find(letter) != std::string_view::npos; }

/// Two live objects of each type.
class HandleWorld {
public:
    HandleWorld();
    virtual ~HandleWorld();
    HandleWorld(const HandleWorld &) = delete;
    HandleWorld &operator=(const HandleWorld &) = delete;

    /// A live object for an argument: 'c', 'b', 't', 'p' and 'a' for aliases of a canvas and of its surface, 'e' for an
    /// entry made by hand, 'D', 'V', 'P' or 'G'. `argument`, 0 or 1: its place among the handles.
    virtual uintptr_t Valid(char letter, size_t argument) const;

    /// What a function is called with.
    std::vector<Argument> ArgumentsFor(const ExportedCall &row) const;

    /// Everything that must be refused for such an argument.
    std::vector<uintptr_t> Wrong(char letter, size_t argument) const;

    /// What calls change of the objects, and the slot that the next object would take.
    std::vector<uint32_t> Snapshot() const;

private:
    static constexpr LONG kSide = 4;

    std::array<OwnedBitmap, 2> bitmaps_{NoisyBitmap(kSide, kSide, 1), NoisyBitmap(kSide, kSide, 2)};
    std::array<OwnedTexture, 2> textures_{NoisyTexture(kSide, kSide, 3), NoisyTexture(kSide, kSide, 4)};
    std::array<OwnedCanvas, 2> canvases_{NoisyCanvas(kSide, kSide, 5),
                                         OwnedCanvas(CreateSystemCanvas(kSide, kSide, HGCANVAS{}))};
    const Dib dib_{kSide, kSide};
    const MemoryDC dc_{dib_.Handle()};
    HGCANVAS canvasAlias_{};
    HGBITMAP bitmapAlias_{};
    DWORD entry_ = 0;
    lq::VectorCanvas companion_ = lq::VectorCanvas::Create();
    lq::Path path_ = lq::Path::Create();
    const lq::Gradient gradient_ = lq::Gradient::Linear(0, 0, 1, 1);
};

}  // namespace lacquer
