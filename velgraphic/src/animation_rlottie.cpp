// Animations through rlottie.

#include <rlottie.h>

#include <new>
#include <string>

#include "animation.h"

namespace lacquer::vel {

struct Animation::Handle {
    std::unique_ptr<rlottie::Animation> animation;
};

std::unique_ptr<Animation> Animation::Create(const char *json, size_t length) {
    std::unique_ptr<Handle> handle(new (std::nothrow) Handle);
    if (!handle) return nullptr;
    // Not through the renderer's cache of models: it goes by a key, and keeps what nobody uses any more.
    handle->animation = rlottie::Animation::loadFromData(std::string(json, length), "", "", false);
    if (!handle->animation) return nullptr;
    return std::unique_ptr<Animation>(new (std::nothrow) Animation(std::move(handle)));
}

Animation::Animation(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
Animation::~Animation() = default;

velLottieInfo Animation::Info() const {
    size_t width = 0, height = 0;
    handle_->animation->size(width, height);
    return {static_cast<LONG>(width), static_cast<LONG>(height), static_cast<float>(handle_->animation->totalFrame()),
            static_cast<float>(handle_->animation->frameRate())};
}

void Animation::Render(size_t frame, uint32_t *pixels, int width, int height, int stride) {
    const rlottie::Surface surface(pixels, static_cast<size_t>(width), static_cast<size_t>(height),
                                   static_cast<size_t>(stride));
    handle_->animation->renderSync(frame, surface, false);
}

}  // namespace lacquer::vel
