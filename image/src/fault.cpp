// Why a call is refused.

#include "fault.h"

#include <cstdio>

namespace lacquer::image {

bool Refuse(Fault &fault, int status, const char *sentence, const char *words) {
    fault.status = status;
    std::snprintf(fault.text, sizeof fault.text, words ? "%s (%s)" : "%s", sentence, words);
    for (char &c : fault.text)
        if (c != 0 && (c < ' ' || c > '~')) c = '?';
    return false;
}

bool RefuseEarlyEnd(Fault &fault) {
    fault.endsEarly = true;
    return Refuse(fault, LACQUER_IMAGE_DAMAGED, "The file ends before the picture does.");
}

}  // namespace lacquer::image
