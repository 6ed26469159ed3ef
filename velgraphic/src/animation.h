// Animations as a renderer gives them. A build without one has an implementation that knows no animation.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lacquer::vel {

class Animation {
public:
    /// From Lottie JSON that ReachOfAnimation does not refuse. Null when it is no animation.
    static std::unique_ptr<Animation> Create(const char *json, size_t length);
    ~Animation();
    Animation(const Animation &) = delete;
    Animation &operator=(const Animation &) = delete;

    velLottieInfo Info() const;
    /// Writes a frame, stretched, as premultiplied words; `frame` is 0 to frameCount - 1, `stride` bytes.
    void Render(size_t frame, uint32_t *pixels, int width, int height, int stride);

private:
    struct Handle;
    explicit Animation(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> handle_;
};

}  // namespace lacquer::vel
