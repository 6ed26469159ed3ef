// compare_pictures TOLERANCE PAINTED SHOWN: fails when two files differ by more levels than allowed.
#include <cstdio>

#include "pictures.h"

int main(int count, char **arguments) {
    if (count != 4) return 2;
    const lq::Bitmap painted = lq::LoadBitmapOf(arguments[2]), shown = lq::LoadBitmapOf(arguments[3]);
    const int difference = lacquer::manual::Difference(painted, shown);
    std::printf("%s: %d\n", arguments[2], difference);
    return difference > std::atoi(arguments[1]);
}
