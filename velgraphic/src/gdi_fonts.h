// How GDI is told which font is meant.
#pragma once

#include <windows.h>

#include "system_font.h"

namespace lacquer::vel {

/// `em`: the height of the em square in device units.
LOGFONTW Describe(const FontName &name, LONG em);

/// A place is a family and a style here.
FontPlace PlaceOf(const FontName &name);
FontName NameAt(const FontPlace &place);

}  // namespace lacquer::vel
