// The exports about animations.

#include <algorithm>
#include <memory>
#include <new>

#include "animation.h"
#include "animation_check.h"
#include "buffer.h"
#include "canvas.h"
#include "open_file.h"

using lacquer::vel::Animation;
using lacquer::vel::AreFinite;
using lacquer::vel::Buffer;
using lacquer::vel::Clip;
using lacquer::vel::kMaxSize;
using lacquer::vel::PixelRect;
using lacquer::vel::Point;

struct velLottie final {
    std::unique_ptr<Animation> animation;
};

namespace {

constexpr size_t kMaxJson = size_t{1} << 26;

/// The largest side that a frame is rendered with; a larger target gets it enlarged.
constexpr int kMaxFrameSide = 4096;

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

/// All of a file, if it is no longer than an animation may be.
bool ReadFile(const char *utf8Path, Buffer<char> &content) {
    const std::unique_ptr<std::FILE, CloseFile> file(lacquer::vel::OpenFile(utf8Path));
    if (!file) return false;
    char block[1 << 14];
    while (const size_t count = std::fread(block, 1, sizeof block, file.get())) {
        if (content.Size() + count > kMaxJson || !content.Reserve(count)) return false;
        for (size_t i = 0; i < count; ++i) content.Append(block[i]);
    }
    return std::ferror(file.get()) == 0;
}

}  // namespace

velLottie *velLottieCreateFromData(const char *json, size_t length) {
    if (!json || length > kMaxJson || !lacquer::vel::AnimationIsSafe({json, length})) return nullptr;
    std::unique_ptr<velLottie> lottie(new (std::nothrow) velLottie);
    if (!lottie) return nullptr;
    lottie->animation = Animation::Create(json, length);
    if (!lottie->animation) return nullptr;
    const velLottieInfo info = lottie->animation->Info();
    if (info.width <= 0 || info.height <= 0 || !(info.frameCount >= 1)) return nullptr;
    return lottie.release();
}

velLottie *velLottieCreateFromFile(const char *utf8Path) {
    Buffer<char> content;
    if (!utf8Path || !ReadFile(utf8Path, content)) return nullptr;
    return velLottieCreateFromData(content.Data(), content.Size());
}

int velLottieGetInfo(velLottie *lottie, velLottieInfo *out) {
    if (!lottie || !out) return 0;
    *out = lottie->animation->Info();
    return 1;
}

int velLottieDestroy(velLottie *lottie) {
    delete lottie;
    return lottie != nullptr;
}

int velLottieDraw(velCanvas *canvas, velLottie *lottie, float frame, float x, float y, float width, float height) {
    if (!canvas || !lottie || !AreFinite(frame, x, y, width, height) || !canvas->target.Bitmap()) return 0;
    if (!(width >= 0 && height >= 0 && std::max(width, height) <= static_cast<float>(kMaxSize))) return 0;
    const Point low = Point{x, y} + canvas->state.translation, high = low + Point{width, height};
    if (!InRange(low) || !InRange(high)) return 0;
    const Clip place = PixelRect(low, high);
    if (place.Intersected(canvas->target.Visible(canvas->state.clip)).IsEmpty()) return 1;

    const int columns = std::min(place.right - place.left, kMaxFrameSide);
    const int rows = std::min(place.bottom - place.top, kMaxFrameSide);
    cairo_surface_t *image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows);
    bool isDone = cairo_surface_status(image) == CAIRO_STATUS_SUCCESS;
    if (isDone) {
        const float last = lottie->animation->Info().frameCount - 1;
        lottie->animation->Render(static_cast<size_t>(std::clamp(frame, 0.0f, last)),
                                  reinterpret_cast<uint32_t *>(cairo_image_surface_get_data(image)), columns, rows,
                                  cairo_image_surface_get_stride(image));
        cairo_surface_mark_dirty(image);
        isDone = canvas->DrawImage(image, place);
    }
    cairo_surface_destroy(image);
    return isDone;
}
