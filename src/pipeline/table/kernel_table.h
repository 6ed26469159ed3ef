// The kernel table: every pixel loop that combines two surfaces or fills one is reached through it. It is written once,
// before the first object exists, and read by any number of threads afterwards.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

#include "pipeline/sample/stretch_weights.h"
#include "pipeline/table/cpu_features.h"
#include "pipeline/table/kernel_rows.h"
#include "pipeline/table/kernel_slots.h"

namespace lacquer {

struct KernelRow;

/// Draws `source` into `dest`, a 32-bit view. The words depend on the row:
///
///   row                                   third       fourth          fifth
///   whole                                 row         kernel mode     -
///   whole, with a parameter               parameter   row             -
///   visible part                          full size   visible offset  -
///   visible part, with a parameter        parameter   full size       visible offset
///
/// where `row` is the address of the kernel's own KernelRow, the parameter a key word or an alpha byte, and sizes and
/// offsets are packed by PackPair. CallRow orders them. Result: 1; nothing is drawn when a view is empty or of another
/// depth than the kernel's, or when the visible part is not inside the full size.
using RowKernel = int (*)(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth,
                          uint64_t fifth);

/// Two 32-bit integers in one word: the first in the lower half.
constexpr uint64_t PackPair(LONG first, LONG second) {
    return uint64_t{static_cast<uint32_t>(second)} << 32 | static_cast<uint32_t>(first);
}
constexpr LONG FirstOfPair(uint64_t pair) { return static_cast<LONG>(static_cast<uint32_t>(pair)); }
constexpr LONG SecondOfPair(uint64_t pair) { return static_cast<LONG>(static_cast<uint32_t>(pair >> 32)); }

/// Which slot of a row serves a source of so many bits per pixel.
constexpr int DepthSlot(int bitsPerPixel) { return bitsPerPixel == 8 ? 0 : bitsPerPixel == 24 ? 1 : 2; }

/// The kernels of one row, by DepthSlot. The fourth slot is reserved: it is never called, and draws nothing.
struct KernelRow {
    RowKernel slots[4];
};

/// Single-slot kernels work on a whole 32-bit view. All return 1; they do nothing when a view is empty or not 32-bit.
/// Where there is a source, the equal-size kernels process the common top-left part.
using FillKernel = int (*)(const SurfaceView *dest, DWORD colour);
using ConvertKernel = int (*)(const SurfaceView *dest, const SurfaceView *source);
using MixKernel = int (*)(const SurfaceView *dest, const SurfaceView *source, BYTE weight);
using MixColorKernel = int (*)(const SurfaceView *dest, DWORD colour, BYTE weight);

struct KernelTable {
    KernelRow rows[kRowCount];

#define LACQUER_SLOT_FIELD(name, kind, sampler, rule, tiers) kind##Kernel name;
    LACQUER_KERNEL_SLOTS(LACQUER_SLOT_FIELD)
#undef LACQUER_SLOT_FIELD

    constexpr KernelRow &operator[](Row row) { return rows[static_cast<std::size_t>(row)]; }
    constexpr const KernelRow &operator[](Row row) const { return rows[static_cast<std::size_t>(row)]; }
};

/// The table for a processor: the base tier and over it the faster tiers that the processor and this build have.
/// Depends on nothing else; no slot is null.
KernelTable BuildKernelTable(const CpuFeatures &features);

/// The bicubic weights of a processor, whatever this build's tiers are: both paint the same pictures.
WeightForm WeightFormOf(const CpuFeatures &features);

/// The table for this processor.
const KernelTable &Kernels();

/// What a row's kernel may want to know beside the views; each kernel takes what its row needs.
struct RowArguments {
    DWORD kernelMode = 0;
    DWORD parameter = 0;           ///< key word or alpha byte
    SIZE fullSize = {0, 0};        ///< of the whole destination rectangle, for rows that draw a visible part
    POINT visibleOffset = {0, 0};  ///< of `dest` inside it
};

/// Calls the kernel of `row` for the source's depth, with its words in their order. Result: the kernel's.
inline int CallRow(const KernelTable &table, Row row, const SurfaceView *dest, const SurfaceView *source,
                   const RowArguments &arguments) {
    const RowTraits &traits = TraitsOf(row);
    const KernelRow &kernels = table[row];
    const RowKernel kernel = kernels.slots[DepthSlot(source->bitsPerPixel)];
    uint64_t first = reinterpret_cast<uintptr_t>(&kernels), second = arguments.kernelMode;
    if (traits.extent == Extent::Part) {
        first = PackPair(arguments.fullSize.cx, arguments.fullSize.cy);
        second = PackPair(arguments.visibleOffset.x, arguments.visibleOffset.y);
    }
    if (traits.HasParameter()) return kernel(dest, source, arguments.parameter, first, second);
    return kernel(dest, source, first, second, 0);
}

}  // namespace lacquer
