// What stays in the process when this library goes: the renderer, with what it stands on. pixman and fontconfig never give
// back what they allocate once, and would allocate it again each time the library is loaded.

#include <cairo.h>
#include <dlfcn.h>

namespace lacquer::vel {
namespace {

struct LastingRenderer {
    LastingRenderer() {
        Dl_info file{};
        if (dladdr(reinterpret_cast<void *>(cairo_create), &file) == 0) return;
        if (void *loaded = dlopen(file.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE)) dlclose(loaded);
    }
};
const LastingRenderer lastingRenderer;

}  // namespace
}  // namespace lacquer::vel
