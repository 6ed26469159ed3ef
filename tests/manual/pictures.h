// Pictures of the manual: what a program has painted now, compared with what the pages show.
#pragma once

#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <algorithm>
#include <cstdlib>

namespace lacquer::manual {

/// By how many levels two pictures differ at most, 256 for other sizes and when one is missing. Pixels are
/// premultiplied.
inline int Difference(HGBITMAP first, HGBITMAP second) {
    const auto a = lq::Lock(first), b = lq::Lock(second);
    if (!a || !b || a.Width() != b.Width() || a.Height() != b.Height()) return 256;
    int largest = 0;
    for (LONG y = 0; y < a.Height(); ++y) {
        const auto rowA = a.Row<DWORD>(y), rowB = b.Row<DWORD>(y);
        for (size_t x = 0; x < rowA.size(); ++x) {
            for (int shift = 0; shift < 32; shift += 8) {
                const int levels = static_cast<int>(rowA[x] >> shift & 255) - static_cast<int>(rowB[x] >> shift & 255);
                largest = std::max(largest, std::abs(levels));
            }
        }
    }
    return largest;
}

}  // namespace lacquer::manual
