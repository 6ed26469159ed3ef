// Why a call is refused.
#pragma once

#include <lacquer/image.h>

namespace lacquer::image {

struct Fault {
    int status = LACQUER_IMAGE_DONE;
    bool endsEarly = false;  ///< the data may be the beginning of a sound file
    char text[200] = "";
};

/// Writes one line of ASCII: a sentence and, unless null, what a decoder said. Result: false.
bool Refuse(Fault &fault, int status, const char *sentence, const char *words = nullptr);

/// Refuses data that end before the picture does. Result: false.
bool RefuseEarlyEnd(Fault &fault);

}  // namespace lacquer::image
