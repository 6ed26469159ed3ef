// A build without an animation renderer.

#include "animation.h"

namespace lacquer::vel {

struct Animation::Handle {};

std::unique_ptr<Animation> Animation::Create(const char *, size_t) { return nullptr; }
Animation::Animation(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
Animation::~Animation() = default;
velLottieInfo Animation::Info() const { return {}; }
void Animation::Render(size_t, uint32_t *, int, int, int) {}

}  // namespace lacquer::vel
