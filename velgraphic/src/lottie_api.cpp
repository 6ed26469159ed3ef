// The exports about animations.

#include <algorithm>
#include <memory>
#include <new>

#include "animation.h"
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

constexpr size_t kMaxJson = size_t{32} << 20;

/// The largest side that a frame is rendered with. Where the target asks for more the frame is enlarged.
constexpr double kMaxFrameSide = 8192;
constexpr float kMaxFrames = 1e6;

/// Why the last load or draw that failed on this thread did.
thread_local const char *lastError = "";

/// Remembers a reason. Result: null, and 0.
std::nullptr_t Refuse(const char *reason) {
    lastError = reason;
    return nullptr;
}
constexpr const char *kShort = "Memory is short.";
constexpr const char *kTooLong = "The animation is longer than 32 MiB.";

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

/// All of a file. Result: why not, or null.
const char *ReadFile(const char *utf8Path, Buffer<char> &content) {
    const std::unique_ptr<std::FILE, CloseFile> file(lacquer::vel::OpenFile(utf8Path));
    if (!file) return "The file cannot be opened.";
    char block[1 << 14];
    while (const size_t count = std::fread(block, 1, sizeof block, file.get())) {
        if (content.Size() + count > kMaxJson) return kTooLong;
        if (!content.Reserve(count)) return kShort;
        for (size_t i = 0; i < count; ++i) content.Append(block[i]);
    }
    return std::ferror(file.get()) == 0 ? nullptr : "The file cannot be read.";
}

}  // namespace

const char *velLottieLastError() { return lastError; }

velLottie *velLottieCreateFromData(const char *json, size_t length) {
    if (!json) return Refuse("There is no animation.");
    if (length > kMaxJson) return Refuse(kTooLong);
    const char *refusal = nullptr;
    std::unique_ptr<velLottie> lottie(new (std::nothrow) velLottie{Animation::Create(json, length, refusal)});
    if (!lottie) return Refuse(kShort);
    if (refusal) return Refuse(refusal);
    const velLottieInfo info = lottie->animation->Info();
    const bool hasSize = info.width > 0 && info.height > 0 && std::max(info.width, info.height) <= kMaxSize;
    if (!hasSize) return Refuse("The animation has no size, or too large a one.");
    if (!(info.frameCount >= 1 && info.frameCount <= kMaxFrames))
        return Refuse("The animation has no frames, or too many.");
    return lottie.release();
}

velLottie *velLottieCreateFromFile(const char *utf8Path) {
    Buffer<char> content;
    if (const char *refusal = utf8Path ? ReadFile(utf8Path, content) : "There is no path.") return Refuse(refusal);
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
    const auto refuse = [](const char *reason) { return Refuse(reason) != nullptr; };
    if (!canvas || !lottie || !canvas->target.Bitmap()) return refuse("There is no canvas, bitmap or animation.");
    if (!AreFinite(frame, x, y, width, height)) return refuse("A number is not finite.");
    const Point low = Point{x, y} + canvas->state.translation, high = low + Point{width, height};
    if (!(width >= 0 && height >= 0 && std::max(width, height) <= static_cast<float>(kMaxSize) && InRange(low) &&
          InRange(high))) {
        return refuse("The rectangle is too large or too far away.");
    }
    const Clip place = PixelRect(low, high);
    if (place.Intersected(canvas->target.Visible(canvas->state.clip)).IsEmpty()) return 1;

    Animation &animation = *lottie->animation;
    const size_t index = static_cast<size_t>(std::clamp(frame, 0.0f, animation.Info().frameCount - 1));
    const auto side = [](double size) { return static_cast<int>(std::min(size, kMaxFrameSide)); };
    int columns = side(double{1} * place.right - place.left), rows = side(double{1} * place.bottom - place.top);
    if (const char *refusal = animation.Prepare(index, columns, rows)) return refuse(refusal);
    cairo_surface_t *image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows);
    const char *refusal = kShort;
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
        refusal = animation.Render(index, reinterpret_cast<uint32_t *>(cairo_image_surface_get_data(image)), columns,
                                   rows, cairo_image_surface_get_stride(image));
        cairo_surface_mark_dirty(image);
        if (!refusal && !canvas->DrawImage(image, place)) refusal = kShort;
    }
    cairo_surface_destroy(image);
    return refusal ? refuse(refusal) : 1;
}
