// Failures, memory and threads.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <cstdio>
#include <thread>
#include <vector>

namespace {

// [load]
// A picture from a file that may be missing or damaged.
lq::Texture LoadOrExplain(const char *path) {
    lq::Texture texture = lq::LoadTexture(path);
    if (!texture) std::fprintf(stderr, "%s: %s\n", path, ImageLastError());
    return texture;
}
// [/load]

// [refused]
bool RefusalsAreHarmless() {
    const HGCANVAS none = CreateCanvas(40000, 10, HGCANVAS{});  // wider than 32767 pixels: refused
    const RECT all = {0, 0, 10, 10};
    const bool filled = FillSolidRect(none, 0xFFFFFFFF, &all);  // no such canvas: refused, nothing happens
    return !none && !filled;
}
// [/refused]

// [owner]
void HandOver() {
    lq::Canvas first = lq::Canvas::Create(64, 64);
    lq::Canvas second = std::move(first);  // `first` owns nothing now
    HGCANVAS handle = second.Release();    // and neither does `second`: the handle is ours to delete
    DeleteCanvas(handle);
}  // owners that still own something delete it here
// [/owner]

// [threads]
// Each thread draws on a canvas of its own and reads textures that no thread changes meanwhile.
std::vector<lq::Canvas> PaintPages(HGTEXTURE icon, int count) {
    std::vector<lq::Canvas> pages(static_cast<size_t>(count));
    std::vector<std::thread> threads;
    for (lq::Canvas &page : pages) {
        threads.emplace_back([&page, icon] {
            page = lq::Canvas::Create(256, 256);
            for (int i = 0; i < 16; ++i) page.Draw(icon, {i * 12, i * 12, i * 12 + 64, i * 12 + 64});
        });
    }
    for (std::thread &thread : threads) thread.join();
    return pages;
}
// [/threads]

}  // namespace

int main() {
    HandOver();
    const lq::Texture icon = LoadOrExplain("icon.png");
    const bool missing = !LoadOrExplain("no-such-file.png");
    return RefusalsAreHarmless() && icon && missing && PaintPages(icon, 4).size() == 4 ? 0 : 1;
}
