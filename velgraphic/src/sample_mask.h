// Masks of figures that are too dense for the renderer: a pixel's coverage is counted out of 8 x 8 samples, in a time
// that grows with the edges' heights alone, however often they cross.
#pragma once

#include <cstdint>

#include "buffer.h"
#include "clip.h"

namespace lacquer::vel {

class SampleMask {
public:
    /// Of the pixels `visible`; `smooth`: otherwise a pixel has one sample, its centre.
    SampleMask(const Clip &visible, bool smooth);

    /// An edge of a closed figure; all edges of a figure go round the same way. The coordinates are pixels.
    void AddEdge(Point from, Point to);
    /// A convex piece of a figure that is enclosed wherever a piece is: all pieces then go round the same way.
    void AddPiece(const Point *corners, int count);

    /// False when there were too many edges or memory is short.
    bool IsWhole() const { return isWhole_; }

    /// The coverage of all pixels, row by row, rows `Stride()` bytes apart. Null when memory is short. Once only.
    const unsigned char *Render(bool evenOdd);
    int Columns() const { return visible_.right - visible_.left; }
    int Rows() const { return visible_.bottom - visible_.top; }
    int Stride() const { return (Columns() + 3) & ~3; }

private:
    /// What is left of an edge below the samples that are being counted.
    struct Edge {
        int64_t x, step;  ///< columns of samples, in steps of 2^-32
        int32_t row, rows;
        int32_t direction;
    };

    /// Adds the samples of one row that lie inside.
    void CountRow(int32_t mask, unsigned char *covered);

    const Clip visible_;
    const int samples_;  ///< of a pixel, in either direction
    const int sampleColumns_, sampleRows_;
    int64_t rowsOfEdges_ = 0;
    Buffer<Edge> edges_;
    Buffer<int32_t> turns_;  ///< at each sample of a row: how much the winding changes there
    Buffer<unsigned char> coverage_;
    bool isWhole_ = true;
};

}  // namespace lacquer::vel
