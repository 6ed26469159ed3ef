// Animations as a renderer gives them. A build without one has an implementation that knows no animation.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lacquer::vel {

class Animation {
public:
    /// From Lottie JSON that nobody has checked. Null, and the reason in `refusal`, when it is not to be had.
    static std::unique_ptr<Animation> Create(const char *json, size_t length, const char *&refusal);
    ~Animation();
    Animation(const Animation &) = delete;
    Animation &operator=(const Animation &) = delete;

    velLottieInfo Info() const;

    /// Makes a size smaller if the renderer cannot hold the frame at it, and proves that the frame can be rendered.
    /// `frame` is 0 to frameCount - 1. Result: why not, or null.
    const char *Prepare(size_t frame, int &width, int &height);
    /// Writes a frame, stretched, as premultiplied words, right after Prepare; `stride` is in bytes. Result: as there.
    const char *Render(size_t frame, uint32_t *pixels, int width, int height, int stride);

private:
    struct Handle;
    explicit Animation(std::unique_ptr<Handle> handle);
    template <class Attempted>
    const char *Attempt(Attempted attempt);

    std::unique_ptr<Handle> handle_;
};

}  // namespace lacquer::vel
