// A build without an animation renderer.

#include "animation.h"

namespace lacquer::vel {

struct Animation::Handle {};

std::unique_ptr<Animation> Animation::Create(const char *, size_t, const char *&refusal) {
    refusal = "This library is built without animations.";
    return nullptr;
}
Animation::Animation(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
Animation::~Animation() = default;
velLottieInfo Animation::Info() const { return {}; }
const char *Animation::Prepare(size_t, int &, int &) { return ""; }
const char *Animation::Render(size_t, uint32_t *, int, int, int) { return ""; }

}  // namespace lacquer::vel
