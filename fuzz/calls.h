// The table of all calls that programs are made of, and the making of one call from a record.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "world.h"

namespace fuzz {

/// Kinds of call, as bits. `kContexts`: what makes a device context that canvases draw on; the rest of GDI is `kGdi`.
enum Group : unsigned { kSurfaces = 1, kVector = 2, kText = 4, kContexts = 8, kGdi = 16 };

/// One call while it is made.
class Call {
public:
    Call(World &worldOfCall, std::span<const uint8_t> record, std::ostream *textOut)
        : world(worldOfCall), choices(record), text(textOut) {}

    /// Notes what came out.
    void Add(uint64_t word) { digest.Add(word); }

    /// Gives a new surface its first pixels.
    template <class Handle>
    void Paint(Handle handle) {
        const uint32_t seed = choices.Byte();
        if (text) *text << "  // painted by " << seed;
        world.Paint(handle, seed);
    }

    World &world;
    Choices choices;
    std::ostream *const text;  ///< where the call is written before it is made; may be null
    Digest digest;             ///< of result and out parameters
    bool usesLive = true;      ///< every handle was meant to be current
    bool done = false;         ///< the function did its work
    bool isUndefined = false;  ///< has no one right result
    std::vector<const void *> pixels;
};

struct Row {
    const char *name;
    Group group;
    std::function<void(Call &)> invoke;
    uint32_t code;  ///< by which a record names the row: follows from the name, so that records outlive other rows
};

/// All rows, by code.
const std::vector<Row> &Calls();

/// The row whose code is the next one from `code`.
const Row &RowFor(uint32_t code);

// The parts of the table.
std::vector<Row> SurfaceCalls();
std::vector<Row> VectorCalls();
std::vector<Row> TextCalls();
std::vector<Row> ContextCalls();
std::vector<Row> GdiCalls();

}  // namespace fuzz
