// Picture files for C++17: <lacquer/image.h> for the owners of <lacquer/lacquer.hpp>. Conventions are those of both;
// what was refused, and why, is told by ImageLastStatus and ImageLastError. Each member is compiled to the plain call.
#ifndef LACQUER_IMAGE_HPP
#define LACQUER_IMAGE_HPP

#include <lacquer/image.h>
#include <lacquer/objects.hpp>

#include <optional>

namespace lq {

// GetImageFileInfo, GetImageDataInfo: what is known of a picture without decoding it; none when the call is refused.
inline std::optional<ImageFileInfo> ReadImageInfo(const char *utf8Path) noexcept {
    ImageFileInfo info{};
    if (!GetImageFileInfo(utf8Path, &info)) return std::nullopt;
    return info;
}
inline std::optional<ImageFileInfo> ReadImageInfo(Span<const BYTE> file) noexcept {
    ImageFileInfo info{};
    if (!GetImageDataInfo(file.data(), file.size(), &info)) return std::nullopt;
    return info;
}

// LoadTextureFromFile, LoadTextureFromData: a texture from a file, or from a file in memory. Empty owner on failure.
inline Texture LoadTexture(const char *utf8Path, const ImageLoadOptions &options = {}) noexcept {
    return Texture(LoadTextureFromFile(utf8Path, &options));
}
inline Texture LoadTexture(Span<const BYTE> file, const ImageLoadOptions &options = {}) noexcept {
    return Texture(LoadTextureFromData(file.data(), file.size(), &options));
}

// LoadBitmapFromFile, LoadBitmapFromData: likewise. <windows.h> has a macro of the shorter name.
inline Bitmap LoadBitmapOf(const char *utf8Path, const ImageLoadOptions &options = {}) noexcept {
    return Bitmap(LoadBitmapFromFile(utf8Path, &options));
}
inline Bitmap LoadBitmapOf(Span<const BYTE> file, const ImageLoadOptions &options = {}) noexcept {
    return Bitmap(LoadBitmapFromData(file.data(), file.size(), &options));
}

// SaveCanvasAsPng, SaveTextureAsPng, SaveBitmapAsPng: writes an object's pixels, by flags LACQUER_PNG_.... False when
// it is refused.
inline bool SavePng(HGCANVAS canvas, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveCanvasAsPng(canvas, utf8Path, flags) != 0;
}
inline bool SavePng(HGTEXTURE texture, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveTextureAsPng(texture, utf8Path, flags) != 0;
}
inline bool SavePng(HGBITMAP bitmap, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveBitmapAsPng(bitmap, utf8Path, flags) != 0;
}

// The bytes of a file in memory; false, and no bytes, without one.
class ImageData : public Owner<void *, FreeImageData> {
public:
    // No bytes.
    ImageData() noexcept = default;

    // Takes over `length` bytes, which came from an Encode... function.
    ImageData(void *bytes, size_t length) noexcept : Owner(bytes), count(length) {}

    // The bytes, which last as long as they are owned.
    Span<const BYTE> Bytes() const noexcept { return {static_cast<const BYTE *>(Handle()), *this ? count : 0}; }

private:
    size_t count = 0;
};

// EncodeCanvasAsPng, EncodeTextureAsPng, EncodeBitmapAsPng: the same to memory. No bytes on failure.
inline ImageData EncodePng(HGCANVAS canvas, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeCanvasAsPng(canvas, flags, &length);
    return {bytes, length};
}
inline ImageData EncodePng(HGTEXTURE texture, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeTextureAsPng(texture, flags, &length);
    return {bytes, length};
}
inline ImageData EncodePng(HGBITMAP bitmap, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeBitmapAsPng(bitmap, flags, &length);
    return {bytes, length};
}

}  // namespace lq

#endif
