// compare_pictures TOLERANCE FOLDER FILE...: fails when a file differs by more levels than allowed from that in FOLDER.
#include <cstdio>
#include <string>

#include "pictures.h"

int main(int count, char **arguments) {
    bool good = count > 3;
    for (int i = 3; i < count; ++i) {
        const lq::Bitmap painted = lq::LoadBitmapOf(arguments[i]);
        const lq::Bitmap shown = lq::LoadBitmapOf((std::string(arguments[2]) + "/" + arguments[i]).c_str());
        const int difference = lacquer::manual::Difference(painted, shown);
        std::printf("%s: %d\n", arguments[i], difference);
        good = good && difference <= std::atoi(arguments[1]);
    }
    return good ? 0 : 1;
}
