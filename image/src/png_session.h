// What reading and writing PNG share. libpng reports an error by a jump back to the last setjmp: each function that
// calls setjmp owns nothing that needs a destructor, and returns at once after a jump.
#pragma once

#include <png.h>

#include "fault.h"

namespace lacquer::image {

/// What libpng's callbacks know.
struct PngSession {
    explicit PngSession(Fault &reportTo) : fault(reportTo) {}

    Fault &fault;
    bool memoryIsShort = false;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

/// For png_create_read_struct_2 and png_create_write_struct_2, with a PngSession as both pointers.
[[noreturn]] void OnPngError(png_structp png, png_const_charp message);
void OnPngWarning(png_structp png, png_const_charp message);
png_voidp AllocateForPng(png_structp png, png_alloc_size_t size);
void FreeForPng(png_structp png, png_voidp block);

}  // namespace lacquer::image
