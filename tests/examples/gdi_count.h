// Counts the objects of GDI that a program and its DLLs hold, by replacing what they import from the system. The
// system's own count is no help where it is always 0.
#pragma once

#include <cstddef>
#include <string>

namespace lacquer::examples {

/// Counts from now on what these modules make and give back; null is the program itself. Result: the names of imported
/// functions that look as if they made objects, but are not known here.
std::string CountGdiObjectsOf(std::initializer_list<const wchar_t *> modules);

/// How many objects have been made and not given back. One that is deleted while it is selected stays alive.
std::size_t LivingGdiObjects();

}  // namespace lacquer::examples
