// What reading and writing PNG share.

#include "png_session.h"

#include <cstdlib>

namespace lacquer::image {

void OnPngError(png_structp png, png_const_charp message) {
    PngSession &session = *static_cast<PngSession *>(png_get_error_ptr(png));
    if (session.memoryIsShort) {
        Refuse(session.fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short.");
    } else if (session.fault.status == LACQUER_IMAGE_DONE) {
        Refuse(session.fault, LACQUER_IMAGE_DAMAGED, "The PNG file is damaged.", message);
    }
    png_longjmp(png, 1);
}

void OnPngWarning(png_structp /*png*/, png_const_charp /*message*/) {}

png_voidp AllocateForPng(png_structp png, png_alloc_size_t size) {
    png_voidp block = std::malloc(size);
    if (!block) static_cast<PngSession *>(png_get_mem_ptr(png))->memoryIsShort = true;
    return block;
}

void FreeForPng(png_structp /*png*/, png_voidp block) { std::free(block); }

}  // namespace lacquer::image
