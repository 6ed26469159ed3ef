// The copy of rows, and the order in which it takes them.

#include "pipeline/memory/copy_rows.h"

#include <cstring>

namespace lacquer {

void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    for (ptrdiff_t y = 0; y < rows; ++y) std::memmove(RowOf(dest, y), RowOf(source, y), static_cast<size_t>(bytes));
}

}  // namespace lacquer
