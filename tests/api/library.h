// The library loaded by its path.
#pragma once

#include <lacquer/lacquer.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#include <lacquer/headless_gdi.h>
#endif

namespace lacquer {

/// A loaded library, until it goes out of scope.
class Library {
public:
#ifdef _WIN32
    explicit Library(const char *path) : module_(LoadLibraryA(path)) {}
    ~Library() { FreeLibrary(module_); }
    void *Find(const char *name) const { return reinterpret_cast<void *>(GetProcAddress(module_, name)); }
    bool IsLoaded() const { return module_; }
#else
    explicit Library(const char *path) : module_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
    ~Library() { dlclose(module_); }
    void *Find(const char *name) const { return dlsym(module_, name); }
    bool IsLoaded() const { return module_; }
#endif
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

private:
#ifdef _WIN32
    HMODULE module_;
#else
    void *module_;
#endif
};

/// A function of the object `library`; the headless GDI's functions come from there as well, Windows has its own.
#define LACQUER_CALL(function) reinterpret_cast<decltype(&::function)>(library.Find(#function))
#ifdef _WIN32
#define LACQUER_GDI_CALL(function) (&::function)
#else
#define LACQUER_GDI_CALL(function) LACQUER_CALL(function)
#endif

}  // namespace lacquer
