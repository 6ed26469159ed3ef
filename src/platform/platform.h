// The one door to the operating system. The rest of the library includes this header and uses Win32 names: they are the
// system's own on Windows and those of the headless subset elsewhere.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <lacquer/headless_gdi.h>
#include "platform/headless/system.h"
#endif
