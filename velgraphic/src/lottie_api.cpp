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
    double reach = 0;
};

namespace {

constexpr size_t kMaxJson = size_t{1} << 26;

/// The largest side that a frame is rendered with, and the farthest that it may reach beyond its sides, because the
/// renderer counts in 16 bits. Where the target asks for more the frame is enlarged.
constexpr double kMaxFrameSide = 4096, kMaxFrameReach = 15000;

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
    if (!json || length > kMaxJson) return nullptr;
    const double reach = lacquer::vel::ReachOfAnimation({json, length});
    if (reach < 0) return nullptr;
    std::unique_ptr<velLottie> lottie(new (std::nothrow) velLottie);
    if (!lottie) return nullptr;
    lottie->reach = reach;
    lottie->animation = Animation::Create(json, length);
    if (!lottie->animation) return nullptr;
    const velLottieInfo info = lottie->animation->Info();
    if (info.width <= 0 || info.height <= 0 || !(info.frameCount >= 1)) return nullptr;
    // A frame of one pixel has to be possible.
    if (reach > kMaxFrameReach * std::min(info.width, info.height)) return nullptr;
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

    const velLottieInfo info = lottie->animation->Info();
    const double placeWidth = place.right - place.left, placeHeight = place.bottom - place.top;
    const double reach = lottie->reach * std::max(placeWidth / info.width, placeHeight / info.height);
    const double reduction = std::min(1.0, kMaxFrameReach / reach);
    const auto side = [&](double size) {
        return std::max(1, static_cast<int>(std::min(size * reduction, kMaxFrameSide)));
    };
    const int columns = side(placeWidth), rows = side(placeHeight);
    cairo_surface_t *image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows);
    bool isDone = cairo_surface_status(image) == CAIRO_STATUS_SUCCESS;
    if (isDone) {
        lottie->animation->Render(static_cast<size_t>(std::clamp(frame, 0.0f, info.frameCount - 1)),
                                  reinterpret_cast<uint32_t *>(cairo_image_surface_get_data(image)), columns, rows,
                                  cairo_image_surface_get_stride(image));
        cairo_surface_mark_dirty(image);
        isDone = canvas->DrawImage(image, place);
    }
    cairo_surface_destroy(image);
    return isDone;
}
