// Objects behind handles: what the handle costs beside the allocation of the pixels.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include <cstdlib>
#include <vector>

namespace {

constexpr DWORD kSide = 16;

void AllocationAlone(benchmark::State &state) {
    for ([[maybe_unused]] auto _ : state) {
        void *const block = std::malloc(std::size_t{4} * kSide * kSide);
        benchmark::DoNotOptimize(block);
        std::free(block);
    }
}
BENCHMARK(AllocationAlone);

void CreateAndDeleteBitmap(benchmark::State &state) {
    for ([[maybe_unused]] auto _ : state) DeleteBitmap(CreateMemBitmap(kSide, kSide));
}
BENCHMARK(CreateAndDeleteBitmap);

/// With many objects alive and the slot freed last taken, a new object needs the free slot of the lowest index.
void CreateBesideManyLiveBitmaps(benchmark::State &state) {
    std::vector<HGBITMAP> live(30000);
    for (HGBITMAP &bitmap : live) bitmap = CreateMemBitmap(1, 1);
    for ([[maybe_unused]] auto _ : state) {
        const HGBITMAP first = CreateMemBitmap(kSide, kSide), second = CreateMemBitmap(kSide, kSide);
        DeleteBitmap(first);
        DeleteBitmap(second);
    }
    for (HGBITMAP bitmap : live) DeleteBitmap(bitmap);
}
BENCHMARK(CreateBesideManyLiveBitmaps);

/// A parent that a child has asked for, as every window of a user interface does: two canvases, one with an alias.
void CreateAndDeleteParentWithAlias(benchmark::State &state) {
    const HGCANVAS child = CreateCanvas(1, 1, {});
    for ([[maybe_unused]] auto _ : state) {
        const HGCANVAS parent = CreateCanvas(kSide, kSide, {});
        SetCanvasParent(child, parent);
        if (state.range(0) != 0) benchmark::DoNotOptimize(GetCanvasParent(child));
        DeleteCanvas(parent);
    }
    DeleteCanvas(child);
}
BENCHMARK(CreateAndDeleteParentWithAlias)->Arg(0)->Arg(1);

void LookUpHandle(benchmark::State &state) {
    const HGBITMAP bitmap = CreateMemBitmap(kSide, kSide);
    BYTE depth = 0;
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(GetBitmapBitsPixel(bitmap, &depth));
    DeleteBitmap(bitmap);
}
BENCHMARK(LookUpHandle);

}  // namespace
