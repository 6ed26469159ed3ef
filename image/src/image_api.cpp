// The exported functions.

#include <lacquer/image.h>

#include <utility>

#include "file.h"
#include "load.h"
#include "png_encoder.h"

using namespace lacquer::image;

namespace {

constexpr DWORD kLoadFlags = LACQUER_IMAGE_STRAIGHT | LACQUER_IMAGE_KEEP_DEPTH | LACQUER_IMAGE_KEEP_ORIENTATION;

/// The least that is read for what is known of a file, and by how much more it is read when that is too little.
constexpr uint64_t kFirstBytes = 1 << 16, kGrowth = 16;

thread_local Fault lastFault;

/// The fault of a call that begins.
Fault &Begin() { return lastFault = {}; }

bool RefuseArgument(Fault &fault, const char *sentence) { return Refuse(fault, LACQUER_IMAGE_BAD_ARGUMENT, sentence); }

bool IsNull(const void *argument, Fault &fault) { return !argument && !RefuseArgument(fault, "An argument is null."); }

lq::Bitmap LoadData(Fault &fault, const void *data, size_t length, const ImageLoadOptions *options) {
    if (IsNull(data, fault)) return {};
    const ImageLoadOptions complete = Complete(options);
    if ((complete.flags & ~kLoadFlags) != 0) {
        RefuseArgument(fault, "There is no such flag.");
        return {};
    }
    return LoadBitmap({static_cast<const uint8_t *>(data), length}, complete, fault);
}

lq::Bitmap LoadFile(Fault &fault, const char *utf8Path, const ImageLoadOptions *options) {
    Content content;
    if (IsNull(utf8Path, fault) || !ReadFile(utf8Path, Complete(options).maxBytes, Extent::kWhole, content, fault))
        return {};
    return LoadData(fault, content.data, content.size, options);
}

HGTEXTURE AsTexture(Fault &fault, lq::Bitmap bitmap) {
    if (!bitmap) return {};
    lq::Texture texture = lq::Texture::From(std::move(bitmap));
    if (!texture) Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short, or no handle is free.");
    return texture.Release();
}

template <class Handle>
bool EncodeObject(Fault &fault, Handle object, DWORD flags, Content &content) {
    if ((flags & ~DWORD{LACQUER_PNG_OPAQUE}) != 0) return RefuseArgument(fault, "There is no such flag.");
    const auto lock = lq::Lock(object);
    const WORD depth = lock.BitsPerPixel();
    if (depth != 8 && depth != 24 && depth != 32)
        return RefuseArgument(fault, "The handle is wrong, or the object has no pixels that can be read.");
    return EncodePng(lock.View(), flags != 0, content, fault);
}

template <class Handle>
int Save(Handle object, const char *utf8Path, DWORD flags) {
    Fault &fault = Begin();
    Content content;
    return !IsNull(utf8Path, fault) && EncodeObject(fault, object, flags, content) &&
           WriteFile(utf8Path, content.View(), fault);
}

template <class Handle>
void *EncodeToMemory(Handle object, DWORD flags, size_t *length) {
    Fault &fault = Begin();
    Content content;
    if (IsNull(length, fault) || !EncodeObject(fault, object, flags, content)) return nullptr;
    *length = content.size;
    return std::exchange(content.data, nullptr);
}

}  // namespace

int ImageLastStatus() { return lastFault.status; }

const char *ImageLastError() { return lastFault.text; }

int GetImageFileInfo(const char *utf8Path, ImageFileInfo *out) {
    Fault &fault = Begin();
    if (IsNull(utf8Path, fault) || IsNull(out, fault)) return 0;
    const uint64_t most = Complete(nullptr).maxBytes;
    Content content;
    for (uint64_t bytes = kFirstBytes;; bytes *= kGrowth) {
        fault = {};
        if (!ReadFile(utf8Path, bytes, Extent::kBeginning, content, fault)) return 0;
        if (ReadInfo(content.View(), *out, fault)) return 1;
        if (!fault.endsEarly || content.size < bytes || bytes >= most) return 0;
    }
}

int GetImageDataInfo(const void *data, size_t length, ImageFileInfo *out) {
    Fault &fault = Begin();
    return !IsNull(data, fault) && !IsNull(out, fault) &&
           ReadInfo({static_cast<const uint8_t *>(data), length}, *out, fault);
}

HGTEXTURE LoadTextureFromFile(const char *utf8Path, const ImageLoadOptions *options) {
    Fault &fault = Begin();
    return AsTexture(fault, LoadFile(fault, utf8Path, options));
}

HGTEXTURE LoadTextureFromData(const void *data, size_t length, const ImageLoadOptions *options) {
    Fault &fault = Begin();
    return AsTexture(fault, LoadData(fault, data, length, options));
}

HGBITMAP LoadBitmapFromFile(const char *utf8Path, const ImageLoadOptions *options) {
    return LoadFile(Begin(), utf8Path, options).Release();
}

HGBITMAP LoadBitmapFromData(const void *data, size_t length, const ImageLoadOptions *options) {
    return LoadData(Begin(), data, length, options).Release();
}

int SaveCanvasAsPng(HGCANVAS canvas, const char *utf8Path, DWORD flags) { return Save(canvas, utf8Path, flags); }

int SaveTextureAsPng(HGTEXTURE texture, const char *utf8Path, DWORD flags) { return Save(texture, utf8Path, flags); }

int SaveBitmapAsPng(HGBITMAP bitmap, const char *utf8Path, DWORD flags) { return Save(bitmap, utf8Path, flags); }

void *EncodeCanvasAsPng(HGCANVAS canvas, DWORD flags, size_t *length) { return EncodeToMemory(canvas, flags, length); }

void *EncodeTextureAsPng(HGTEXTURE texture, DWORD flags, size_t *length) {
    return EncodeToMemory(texture, flags, length);
}

void *EncodeBitmapAsPng(HGBITMAP bitmap, DWORD flags, size_t *length) { return EncodeToMemory(bitmap, flags, length); }

void FreeImageData(void *data) { std::free(data); }
