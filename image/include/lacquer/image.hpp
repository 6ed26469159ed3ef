/// @file
/// Picture files for C++17: <lacquer/image.h> for the owners of <lacquer/lacquer.hpp>. Conventions are those of both;
/// what was refused, and why, is told by ImageLastStatus and ImageLastError. Each function is compiled to the plain
/// call.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_IMAGE_HPP
#define LACQUER_IMAGE_HPP

#include <lacquer/image.h>
#include <lacquer/objects.hpp>

#include <optional>

namespace lq {

/// @addtogroup cpp
/// @param utf8Path the file, in UTF-8; null is refused
/// @param file the bytes of a file in memory, which are not kept; an empty span is refused
/// @param options how to load, and up to what limits
/// @param canvas the canvas; a wrong handle, and one made from a device context, is refused
/// @param texture the texture; a wrong handle is refused
/// @param bitmap the bitmap; a wrong handle is refused
/// @param flags values LACQUER_PNG_..., added up
/// @{

/// GetImageFileInfo: what is known of a picture without decoding it.
/// @return the record; none when the call is refused
inline std::optional<ImageFileInfo> ReadImageInfo(const char *utf8Path) noexcept {
    ImageFileInfo info{};
    if (!GetImageFileInfo(utf8Path, &info)) return std::nullopt;
    return info;
}
/// GetImageDataInfo: the same of a file in memory.
/// @return the record; none when the call is refused
inline std::optional<ImageFileInfo> ReadImageInfo(Span<const BYTE> file) noexcept {
    ImageFileInfo info{};
    if (!GetImageDataInfo(file.data(), file.size(), &info)) return std::nullopt;
    return info;
}

/// LoadTextureFromFile: a texture from a file.
/// @return the texture; empty on failure
inline Texture LoadTexture(const char *utf8Path, const ImageLoadOptions &options = {}) noexcept {
    return Texture(LoadTextureFromFile(utf8Path, &options));
}
/// LoadTextureFromData: a texture from a file in memory.
/// @return the texture; empty on failure
inline Texture LoadTexture(Span<const BYTE> file, const ImageLoadOptions &options = {}) noexcept {
    return Texture(LoadTextureFromData(file.data(), file.size(), &options));
}

/// LoadBitmapFromFile: a bitmap from a file. <windows.h> has a macro of the shorter name.
/// @return the bitmap; empty on failure
inline Bitmap LoadBitmapOf(const char *utf8Path, const ImageLoadOptions &options = {}) noexcept {
    return Bitmap(LoadBitmapFromFile(utf8Path, &options));
}
/// LoadBitmapFromData: a bitmap from a file in memory.
/// @return the bitmap; empty on failure
inline Bitmap LoadBitmapOf(Span<const BYTE> file, const ImageLoadOptions &options = {}) noexcept {
    return Bitmap(LoadBitmapFromData(file.data(), file.size(), &options));
}

/// SaveCanvasAsPng: writes a canvas's pixels to a file.
/// @return true for done; false when the call is refused
inline bool SavePng(HGCANVAS canvas, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveCanvasAsPng(canvas, utf8Path, flags) != 0;
}
/// SaveTextureAsPng: writes a texture's pixels to a file.
/// @return true for done; false when the call is refused
inline bool SavePng(HGTEXTURE texture, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveTextureAsPng(texture, utf8Path, flags) != 0;
}
/// SaveBitmapAsPng: writes a bitmap's pixels to a file.
/// @return true for done; false when the call is refused
inline bool SavePng(HGBITMAP bitmap, const char *utf8Path, DWORD flags = 0) noexcept {
    return SaveBitmapAsPng(bitmap, utf8Path, flags) != 0;
}

/// The bytes of a file in memory; false, and no bytes, without one.
class ImageData : public Owner<void *, FreeImageData> {
public:
    /// No bytes.
    ImageData() noexcept = default;

    /// Takes over what an Encode... function gave.
    /// @param bytes the bytes; null for none
    /// @param length how many bytes there are
    ImageData(void *bytes, size_t length) noexcept : Owner(bytes), count(length) {}

    /// The bytes, which last as long as they are owned.
    /// @return the bytes; an empty span when nothing is owned
    Span<const BYTE> Bytes() const noexcept { return {static_cast<const BYTE *>(Handle()), *this ? count : 0}; }

private:
    size_t count = 0;
};

/// EncodeCanvasAsPng: writes a canvas's pixels to memory.
/// @return the file; no bytes on failure
inline ImageData EncodePng(HGCANVAS canvas, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeCanvasAsPng(canvas, flags, &length);
    return {bytes, length};
}
/// EncodeTextureAsPng: writes a texture's pixels to memory.
/// @return the file; no bytes on failure
inline ImageData EncodePng(HGTEXTURE texture, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeTextureAsPng(texture, flags, &length);
    return {bytes, length};
}
/// EncodeBitmapAsPng: writes a bitmap's pixels to memory.
/// @return the file; no bytes on failure
inline ImageData EncodePng(HGBITMAP bitmap, DWORD flags = 0) noexcept {
    size_t length = 0;
    void *const bytes = EncodeBitmapAsPng(bitmap, flags, &length);
    return {bytes, length};
}

/// @}

}  // namespace lq

#endif
