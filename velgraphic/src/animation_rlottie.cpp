// Animations through rlottie. This file is compiled with exceptions, for those of the renderer; none leaves it. Where
// the renderer is built without them its lack of memory ends the program, so what it may need is proven beforehand.

#include <rlottie.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "animation.h"
#include "animation_check.h"
#include "animation_frame.h"
#include "memory_proof.h"

namespace lacquer::vel {
namespace {

using Model = std::unique_ptr<rlottie::Animation>;

constexpr const char *kShort = "Memory is short.";
constexpr const char *kUnknown = "The renderer knows no such animation.";
constexpr const char *kFar = "The frame reaches too far.";

/// What the renderer may keep of frames that it has drawn, beside the one that it draws.
constexpr double kMaxKept = 256 << 20;

// Not through the renderer's cache of models: it goes by a key, and keeps what nobody uses any more.
Model LoadModel(std::string json) { return rlottie::Animation::loadFromData(std::move(json), "", "", false); }

/// The text without dashes. Each of their lengths is a stroke of that width instead, which the tree of shapes will
/// show: the lengths of the very frame, without the time that a tiny or negative one would take.
std::string WithoutDashes(std::string json, const CheckedAnimation &checked) {
    std::string result;
    for (const DashedStroke &stroke : checked.strokes) json[stroke.patternName] = '-';
    size_t at = 0;
    for (const DashedStroke &stroke : checked.strokes) {
        result.append(json, at, stroke.end - at);
        at = stroke.end;
        // The last length is where the pattern begins.
        for (size_t i = 0; i + 1 < stroke.lengthCount; ++i) {
            const TextRange &length = checked.lengths[stroke.firstLength + i];
            result += R"(,{"ty":"st","nm":")";
            result += kDashName;
            if (i == 0) result += '0';
            result += R"(","c":{"k":[0,0,0]},"o":{"k":100},"w":)";
            result.append(json, length.begin, length.end - length.begin);
            result += '}';
        }
    }
    return result.append(json, at);
}

/// Whether so many threads can run at once, each with a stack and a heap. They are tried. What the system keeps of them
/// when they end serves the next threads.
bool ThreadsCanRun(size_t count) {
    std::vector<std::thread> threads;
    // All threads have to be alive at once: each ends when it gets this. Waiting for an atomic value would do, but
    // where the system has no such wait the library's own sometimes misses the change.
    std::mutex mayEnd;
    std::unique_lock notYet(mayEnd);
    bool canRun = true;
    try {
        threads.reserve(count);
        for (size_t i = 0; i < count; ++i) {
            threads.emplace_back([&mayEnd] {
                // The first allocation gives the thread its heap.
                void *volatile piece = std::malloc(1);
                std::free(piece);
                const std::lock_guard ended(mayEnd);
            });
        }
    } catch (const std::exception &) {
        canRun = false;
    }
    notYet.unlock();
    for (std::thread &thread : threads) thread.join();
    return canRun;
}

/// The renderer's threads begin with its first shapes. If they can't, that ends the program; so they begin here, once
/// there is room for them.
bool HasThreads() {
    static std::atomic<bool> hasThreads = false;
    if (hasThreads) return true;
    constexpr size_t kShapesPerThread = size_t{1} << 20;
    const size_t count = std::max(1u, std::thread::hardware_concurrency());
    if (!ThreadsCanRun(count) || !MemoryCanBeHad(count * kShapesPerThread)) return false;
    std::string shapes;
    for (size_t i = 0; i < 4 * count; ++i) {
        shapes += R"(,{"ty":"gr","it":[{"ty":"rc","p":{"k":[1,1]},"s":{"k":[2,2]}},{"ty":"fl","c":{"k":[1,1,1]}}]})";
    }
    const Model model =
        LoadModel(R"({"v":"5","fr":1,"ip":0,"op":1,"w":2,"h":2,"layers":[{"ty":4,"ks":{},"op":1,"shapes":[)" +
                  shapes.substr(1) + "]}]}");
    uint32_t pixels[4];
    if (model) model->renderSync(0, rlottie::Surface(pixels, 2, 2, 8), false);
    return hasThreads = true;
}

}  // namespace

struct Animation::Handle {
    std::string json;
    Model model;  ///< what is drawn
    Model tree;   ///< what is asked for its shapes; never drawn, which would leave the tree without its points
    velLottieInfo info{};
    double preparing = 0;  ///< for any frame's shapes
    double kept = 0;
    double needed = 0;  ///< for the frame that was prepared

    /// Both anew. Result: why not, or null.
    const char *Load();
};

const char *Animation::Handle::Load() {
    model = nullptr;
    tree = nullptr;
    kept = 0;
    CheckedAnimation checked;
    CheckAnimation(json.data(), json.size(), checked);
    if (checked.refusal) return checked.refusal;
    preparing = checked.frameBytes;
    if (!MemoryCanBeHad(2 * json.size() + static_cast<size_t>(checked.bytes))) return kShort;
    model = LoadModel(json);
    if (!model) return kUnknown;
    size_t width = 0, height = 0;
    model->size(width, height);
    info = {static_cast<LONG>(width), static_cast<LONG>(height), static_cast<float>(model->totalFrame()),
            static_cast<float>(model->frameRate())};
    tree = LoadModel(WithoutDashes(json, checked));
    return tree ? nullptr : kUnknown;
}

std::unique_ptr<Animation> Animation::Create(const char *json, size_t length, const char *&refusal) {
    std::unique_ptr<Handle> handle(new (std::nothrow) Handle);
    std::unique_ptr<Animation> animation(handle ? new (std::nothrow) Animation(std::move(handle)) : nullptr);
    refusal = !animation ? kShort : animation->Attempt([&] {
        animation->handle_->json.assign(json, length);
        return animation->handle_->Load();
    });
    return refusal ? nullptr : std::move(animation);
}

/// Does what may throw, which leaves the models in any state. Result: as `attempt`, or why it failed.
template <class Attempted>
const char *Animation::Attempt(Attempted attempt) {
    try {
        return attempt();
    } catch (const std::exception &) {
        handle_->tree = nullptr;
        return kShort;
    }
}

Animation::Animation(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
Animation::~Animation() = default;

velLottieInfo Animation::Info() const { return handle_->info; }

const char *Animation::Prepare(size_t frame, int &width, int &height) {
    return Attempt([&]() -> const char * {
        if (!handle_->tree || handle_->kept > kMaxKept) {
            if (const char *refusal = handle_->Load()) return refusal;
        }
        if (!MemoryCanBeHad(static_cast<size_t>(handle_->preparing))) return kShort;
        const velLottieInfo &info = handle_->info;
        const auto measure = [&] {
            const LOTLayerNode *tree =
                handle_->tree->renderTree(frame, static_cast<size_t>(width), static_cast<size_t>(height));
            return MeasureFrame(*tree, {width, height, info.width, info.height});
        };
        FrameNeeds needs = measure();
        // One more step when what was rounded up is still too much.
        for (int i = 0; i < 2 && needs.reduction < 1; ++i) {
            if (width == 1 && height == 1) break;
            width = std::max(1, static_cast<int>(width * needs.reduction));
            height = std::max(1, static_cast<int>(height * needs.reduction));
            needs = measure();
        }
        if (needs.reduction < 1) return kFar;
        if (needs.refusal) return needs.refusal;
        const double own = 8.0 * width * height;
        const size_t bytes = static_cast<size_t>(handle_->preparing + needs.bytes + own);
        if (!HasThreads() || !MemoryCanBeHad(bytes)) return kShort;
        handle_->needed = needs.bytes;
        return nullptr;
    });
}

const char *Animation::Render(size_t frame, uint32_t *pixels, int width, int height, int stride) {
    return Attempt([&]() -> const char * {
        handle_->kept += handle_->needed;
        const rlottie::Surface surface(pixels, static_cast<size_t>(width), static_cast<size_t>(height),
                                       static_cast<size_t>(stride));
        handle_->model->renderSync(frame, surface, false);
        return nullptr;
    });
}

}  // namespace lacquer::vel
