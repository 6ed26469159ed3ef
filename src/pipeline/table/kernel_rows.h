// The rows of the kernel table, in one list: name, sampler, combine rule, and whether the row draws the whole
// destination rectangle or the visible part of one. Enumeration, names, table and tests are made from it.
#pragma once

#include <array>
#include <cstddef>

namespace lacquer {

#define LACQUER_KERNEL_ROWS(ROW)                                \
    ROW(CopyRow, SameSize, Copy, Whole)                         \
    ROW(OverRow, SameSize, Over, Whole)                         \
    ROW(BehindRow, SameSize, Behind, Whole)                     \
    ROW(ModulateRow, SameSize, Modulate, Whole)                 \
    ROW(ColorKeyRow, SameSize, ColorKey, Whole)                 \
    ROW(ConstAlphaRow, SameSize, ConstAlpha, Whole)             \
    ROW(StretchCopyRow, Nearest, Copy, Whole)                   \
    ROW(StretchOverRow, Nearest, Over, Whole)                   \
    ROW(StretchBehindRow, Nearest, Behind, Whole)               \
    ROW(StretchModulateRow, Nearest, Modulate, Whole)           \
    ROW(StretchColorKeyRow, Nearest, ColorKey, Whole)           \
    ROW(StretchConstAlphaRow, Nearest, ConstAlpha, Whole)       \
    ROW(SubRectCopyRow, Nearest, Copy, Part)                    \
    ROW(SubRectOverRow, Nearest, Over, Part)                    \
    ROW(SubRectBehindRow, Nearest, Behind, Part)                \
    ROW(SubRectModulateRow, Nearest, Modulate, Part)            \
    ROW(SubRectColorKeyRow, Nearest, ColorKey, Part)            \
    ROW(SubRectConstAlphaRow, Nearest, ConstAlpha, Part)        \
    ROW(FilterCopyRow, Bilinear, Copy, Whole)                   \
    ROW(FilterOverRow, Bilinear, Over, Whole)                   \
    ROW(BicubicCopyRow, Bicubic, Copy, Whole)                   \
    ROW(BicubicOverRow, Bicubic, Over, Whole)                   \
    ROW(AreaCopyRow, Area, Copy, Whole)                         \
    ROW(FilterConstAlphaRow, Bilinear, ConstAlpha, Whole)       \
    ROW(BicubicConstAlphaRow, Bicubic, ConstAlpha, Whole)       \
    ROW(SubRectFilterCopyRow, Bilinear, Copy, Part)             \
    ROW(SubRectFilterOverRow, Bilinear, Over, Part)             \
    ROW(SubRectBicubicCopyRow, Bicubic, Copy, Part)             \
    ROW(SubRectBicubicOverRow, Bicubic, Over, Part)             \
    ROW(SubRectAreaCopyRow, Area, Copy, Part)                   \
    ROW(SubRectFilterConstAlphaRow, Bilinear, ConstAlpha, Part) \
    ROW(SubRectBicubicConstAlphaRow, Bicubic, ConstAlpha, Part)

/// A row's index in the table.
enum class Row : int {
#define LACQUER_ROW_NAME(name, sampler, combine, extent) name,
    LACQUER_KERNEL_ROWS(LACQUER_ROW_NAME)
#undef LACQUER_ROW_NAME
};

/// Area means: averages where the draw keeps or reduces both dimensions, else bicubic.
enum class SamplerKind { SameSize, Nearest, Bilinear, Bicubic, Area };
/// Those of rows come first, then those of single slots.
enum class CombineKind {
    Copy,
    Over,
    Behind,
    Modulate,
    ColorKey,
    ConstAlpha,
    Or,
    GreyTint,
    Opaque,
    CrossFade,
    Mix,
    AddWeighted
};
enum class Extent { Whole, Part };

struct RowTraits {
    const char *name;
    SamplerKind sampler;
    CombineKind combine;
    Extent extent;

    /// Whether the row's kernels take a parameter word: the key, or the alpha byte.
    constexpr bool HasParameter() const {
        return combine == CombineKind::ColorKey || combine == CombineKind::ConstAlpha;
    }
};

inline constexpr std::array kRowTraits = {
#define LACQUER_ROW_TRAITS(name, sampler, combine, extent) \
    RowTraits{#name, SamplerKind::sampler, CombineKind::combine, Extent::extent},
    LACQUER_KERNEL_ROWS(LACQUER_ROW_TRAITS)
#undef LACQUER_ROW_TRAITS
};
inline constexpr int kRowCount = static_cast<int>(kRowTraits.size());
static_assert(kRowCount == 32);

constexpr const RowTraits &TraitsOf(Row row) { return kRowTraits[static_cast<std::size_t>(row)]; }

}  // namespace lacquer
