// Kernels whose source and destination overlap, and the heap, which they leave alone.

#include <algorithm>

#include "allocation_count.h"
#include "kernel_check.h"

namespace lacquer {
namespace {

/// Any two rectangles of one image, small or taken for large. Copies at 1:1, whole rows among them, give what a second
/// image would have given; other draws leave what lies around alone.
TEST(Memory, OneSurfaceMayBeBothSourceAndDestination) {
    Random random = CaseRandom(3);
    std::vector<Kernel> kernels;
    std::copy_if(AllKernels().begin(), AllKernels().end(), std::back_inserter(kernels),
                 [](const Kernel &kernel) { return kernel.depth == 32; });
    ASSERT_EQ(kernels.front().row, Row::CopyRow);
    for (const TableUnderTest &tier : TablesUnderTest()) {
        for (int round = 0; round < 12000 / kSlice; ++round) {
            SetAnyLimits(random);
            const int width = random.Between(1, 40), height = random.Between(1, 12);
            TestImage image(width, height, 32, random.Of({0, 4}), round % 4);
            image.Fill(random);
            RECT dest = random.Inside({0, 0, width, height});
            if (random.Between(0, 3) == 0) dest = {0, dest.top, width, dest.bottom};
            const int dx = random.Between(-dest.left, width - dest.right),
                      dy = random.Between(-dest.top, height - dest.bottom);
            const SurfaceView to = image.View(dest),
                              from = image.View({dest.left + dx, dest.top + dy, dest.right + dx, dest.bottom + dy});
            const Kernel &kernel = random.Coin() ? kernels.front() : kernels[random.Word() % kernels.size()];
            const auto weight = random.Of<DWORD>({99, 255});
            const bool mixesAll = kernel.combine == CombineKind::Mix && kernel.IsSameSize() && weight == 255;
            const TestImage before = image;
            TestImage expected = image;
            kernel.call(tier.table, &to, &from, {.parameter = weight, .fullSize = {to.width, to.height}});
            for (int y = dest.top; y < dest.bottom; ++y) {
                for (int x = dest.left; x < dest.right; ++x) {
                    const bool copies = kernel.row == Row::CopyRow || mixesAll;
                    expected.Set(x, y, copies ? before.At(x + dx, y + dy) : image.At(x, y));
                }
            }
            ASSERT_TRUE(expected == image) << tier.name << " round " << round << ' ' << kernel.name;
        }
    }
}

TEST(Memory, NoDrawAsksForHeap) {
    Random random = CaseRandom(4);
    for (const Kernel &kernel : AllKernels()) {
        const TestImage source = RandomSource(random, 700, 300, kernel.depth);
        const TestImage dest = kernel.IsSameSize() ? TestImage(700, 300) : TestImage(600, 50);
        const SurfaceView destView = dest.View(), sourceView = source.View();
        const RowArguments arguments{.parameter = 99, .fullSize = {900, 90}};
        const long before = AllocationCount();
        kernel.call(Kernels(), &destView, &sourceView, arguments);
        EXPECT_EQ(AllocationCount(), before) << kernel.name;
    }
    // The counter does count.
    const long before = AllocationCount();
    operator delete(operator new(7));
    EXPECT_GT(AllocationCount(), before);
}

}  // namespace
}  // namespace lacquer
