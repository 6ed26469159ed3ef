// The objects behind the tests of wrong handles.

#include "handle_world.h"

#include <cctype>

namespace lacquer {

HandleWorld::HandleWorld() {
    const RECT slices[] = {{0, 0, 2, 2}, {1, 1, 4, 3}};
    for (const HGTEXTURE texture : {HGTEXTURE(textures_[0]), HGTEXTURE(textures_[1])}) {
        SetTextureSlice(texture, 2, slices);
        SetTextureFilter(texture, 0x01000000);
    }
    for (const HGCANVAS canvas : {HGCANVAS(canvases_[0]), HGCANVAS(canvases_[1])}) {
        SetCanvasFilter(canvas, 0x01000000);
        SetCanvasWindow(canvas, reinterpret_cast<HWND>(this));
        SetBlendMode(canvas, 12);
        SetBlendValue(canvas, 99);
        SetStrokeWidth(canvas, 3);
        Save(canvas);
    }
    SetCanvasParent(canvases_[0], canvases_[1]);
    canvasAlias_ = GetCanvasParent(canvases_[0]);
    bitmapAlias_ = GetBitmap(canvases_[0]);
    entry_ = e_NewHandleEntry(nullptr, 9, &entry_);
    // Its pixels must outlive it.
    static DWORD pixels[16];
    companion_.DrawInto(pixels, 4, 4, 16);
    path_.AddRectangle(0, 0, 2, 2);
}

HandleWorld::~HandleWorld() {
    ReleaseCanvas(canvasAlias_);
    ReleaseBitmap(bitmapAlias_);
    e_DelHandleEntry(nullptr, entry_);
}

uintptr_t HandleWorld::Valid(char letter, size_t argument) const {
    switch (letter) {
        case 'c': return HGCANVAS(canvases_[argument]).value;
        case 'b': return HGBITMAP(bitmaps_[argument]).value;
        case 't': return HGTEXTURE(textures_[argument]).value;
        case 'p': return canvasAlias_.value;
        case 'a': return bitmapAlias_.value;
        case 'D': return reinterpret_cast<uintptr_t>(static_cast<HDC>(dc_));
        case 'V': return reinterpret_cast<uintptr_t>(companion_.Handle());
        case 'P': return reinterpret_cast<uintptr_t>(path_.Handle());
        case 'G': return reinterpret_cast<uintptr_t>(gradient_.Handle());
        default: return entry_;
    }
}

std::vector<Argument> HandleWorld::ArgumentsFor(const ExportedCall &row) const {
    std::vector<Argument> arguments = row.arguments;
    size_t handles = 0;
    for (Argument &argument : arguments) {
        if (std::isalpha(argument.letter) && argument.letter != 'n' && argument.letter != 's') {
            argument.word = Valid(argument.letter, handles++);
        }
    }
    return arguments;
}

std::vector<uintptr_t> HandleWorld::Wrong(char letter, size_t argument) const {
    const uintptr_t valid = Valid(letter, argument), type = valid >> 16 & 0xFF;
    std::vector<uintptr_t> wrong{0,
                                 type << 16 | 0x01000000,
                                 valid & 0xFF00FFFF,
                                 valid ^ 0x01000000,
                                 valid ^ 0x80000000,
                                 valid | 0x8000,
                                 (valid & 0xFFFF0000) | 0x7FFF,
                                 (valid & 0xFF00FFFF) | 0x00040000,
                                 0xFFFFFFFF,
                                 (valid & 0xFFFF) | 0x02000000};
    for (const char other : {'c', 'b', 't'}) {
        const uintptr_t handle = Valid(other, 0);
        if (letter != 'e' && (handle >> 16 & 0xFF) != type) wrong.push_back(handle);
    }
    const size_t count = wrong.size();
    for (size_t i = 0; i < count; ++i) wrong.push_back(wrong[i] | kUpperGarbage);
    return wrong;
}

std::vector<uint32_t> HandleWorld::Snapshot() const {
    std::vector<uint32_t> state;
    const auto add = [&](auto... words) { (state.push_back(static_cast<uint32_t>(words)), ...); };
    const auto addPixelsAndFilter = [&](const auto &object) {
        for (const uint32_t pixel : PixelsIn(object)) add(pixel);
        add(FilterOf(object));
    };
    for (const OwnedBitmap &bitmap : bitmaps_) addPixelsAndFilter(bitmap);
    for (const OwnedTexture &texture : textures_) {
        addPixelsAndFilter(texture);
        add(SizeOf(texture)[0], GetTextureSliceCount(texture));
    }
    for (const OwnedCanvas &canvas : canvases_) {
        addPixelsAndFilter(canvas);
        const Rect clip = ClipOf(canvas);
        const HGCANVAS parent = GetCanvasParent(canvas);
        ReleaseCanvas(parent);
        add(clip.left, clip.bottom, GetBlendMode(canvas), static_cast<bool>(parent));
    }
    const HGBITMAP next = CreateMemBitmap(1, 1);
    DeleteBitmap(next);
    add(next.value & 0xFFFF);
    return state;
}

}  // namespace lacquer
