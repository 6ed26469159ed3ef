// A program outside the project, in C++: the packages have the version of the headers, and owners work.
#include <lacquer/lacquer.hpp>

constexpr std::string_view kVersion = LACQUER_VERSION_STRING;
static_assert(kVersion == lacquer_VERSION && kVersion == velgraphic_VERSION);

int main() {
    lq::Canvas canvas = lq::Canvas::Create(4, 4);
    return canvas.Fill({1, 1, 3, 3}, 0xFF123456) && lq::Lock(canvas).Row(1)[1] == 0xFF123456 ? 0 : 1;
}
