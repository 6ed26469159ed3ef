// Which slots of the handle table name one object: all handles of an object that dies are found without a search.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lacquer {

/// Chains of slots, beside the slots themselves. A slot is in the chain that its object's address chooses, so that a
/// chain may hold slots of other objects as well, though rarely: there are as many chains as slots. To enter and to
/// leave take the same time however long a chain is. Slot 0 is in none.
class ObjectChains {
public:
    static constexpr uint32_t kSlots = 32768;

    void Enter(uint32_t slot, const void *object) {
        uint16_t &first = first_[ChainOf(object)];
        links_[slot] = {first, 0};
        links_[first].previous = static_cast<uint16_t>(slot);
        first = static_cast<uint16_t>(slot);
    }

    void Leave(uint32_t slot, const void *object) {
        const Link link = links_[slot];
        (link.previous != 0 ? links_[link.previous].next : first_[ChainOf(object)]) = link.next;
        links_[link.next].previous = link.previous;
    }

    /// The slots of a chain; 0 ends it.
    uint32_t First(const void *object) const { return first_[ChainOf(object)]; }
    uint32_t Next(uint32_t slot) const { return links_[slot].next; }

private:
    struct Link {
        uint16_t next, previous;
    };

    /// The upper bits of a product, which all bits of the address have a part in.
    static size_t ChainOf(const void *object) {
        constexpr uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
        return static_cast<size_t>(reinterpret_cast<uintptr_t>(object) * kGoldenRatio >> 49);
    }
    static_assert(kSlots == 1 << (64 - 49));

    uint16_t first_[kSlots]{};
    Link links_[kSlots];  ///< meaningful for slots in a chain; that of slot 0 takes what the last one has no use for
};

}  // namespace lacquer
