// From an exported function and the kinds of its arguments to a row of the table.
#pragma once

#include <ostream>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "calls.h"

namespace fuzz {

/// Results that say whose they are where the plain type does not.
template <class Handle>
struct Owned {
    Handle handle;
};
template <class Handle>
struct Alias {
    Handle handle;
};

namespace invoking {

template <class Type>
struct ResultTraits {
    static constexpr bool kIsHandle = kShape<Type>.own != 0 && !std::is_same_v<Type, DWORD>;
    static constexpr Section kSection =
        std::is_same_v<Type, HDC> || std::is_same_v<Type, HBITMAP> ? Section::Lent : Section::Own;
    using Handle = Type;
    static Type Get(Type value) { return value; }
};
template <class Type>
struct ResultTraits<Owned<Type>> {
    static constexpr bool kIsHandle = true;
    static constexpr Section kSection = Section::Own;
    using Handle = Type;
    static Type Get(Owned<Type> value) { return value.handle; }
};
template <class Type>
struct ResultTraits<Alias<Type>> {
    static constexpr bool kIsHandle = true;
    static constexpr Section kSection = Section::Lent;
    using Handle = Type;
    static Type Get(Alias<Type> value) { return value.handle; }
};

/// A result as a number that is the same in every run of a program: of a library handle what does not count deletions,
/// of others only whether it is null.
template <class Type>
uint64_t Number(Type result) {
    if constexpr (std::is_pointer_v<Type>) {
        return result != nullptr;
    } else if constexpr (std::is_class_v<Type>) {
        return static_cast<DWORD>(result.value) & 0xFFFFFF;
    } else if constexpr (std::is_floating_point_v<Type>) {
        return static_cast<uint64_t>(static_cast<double>(result) * 65536);
    } else {
        return static_cast<uint32_t>(result);
    }
}

/// The place for a new handle: one without a live handle, if there is one.
template <class Handle>
size_t PlaceFor(Call &call, Section section) {
    const auto &pool = call.world.PoolOf<Handle>();
    const size_t first = pool.First(section), count = pool.Count(section), start = call.choices.Byte();
    for (size_t i = 0; i < count; ++i) {
        if (!IsLive(pool[first + (start + i) % count])) return first + (start + i) % count;
    }
    return first + start % count;
}

template <class Type>
auto AsTuple(Type value) {
    return std::tuple<Type>(value);
}
template <class... Types>
auto AsTuple(std::tuple<Types...> values) {
    return values;
}

inline void WriteList(std::ostream &) {}
template <class First, class... Others>
void WriteList(std::ostream &out, const First &first, const Others &...others) {
    first.Write(out);
    ((out << ", ", others.Write(out)), ...);
}

}  // namespace invoking

template <class... Kinds, class Function>
void Invoke(Call &call, const char *name, Function function) {
    using namespace invoking;
    std::tuple<Kinds...> kinds{Kinds(call)...};
    auto arguments = std::apply([](auto &...kind) { return std::tuple_cat(AsTuple(kind.Value())...); }, kinds);
    using Result = decltype(std::apply(function, arguments));
    using Traits = ResultTraits<std::conditional_t<std::is_void_v<Result>, int, Result>>;
    size_t place = 0;
    if constexpr (Traits::kIsHandle) place = PlaceFor<typename Traits::Handle>(call, Traits::kSection);
    if (call.isUndefined) return;
    if (call.text) {
        if constexpr (Traits::kIsHandle) {
            *call.text << kShape<typename Traits::Handle>.name << '[' << place << "] = ";
        }
        *call.text << name << '(';
        std::apply([&](const auto &...kind) { WriteList(*call.text, kind...); }, kinds);
        *call.text << ");" << std::flush;
    }
    if constexpr (std::is_void_v<Result>) {
        std::apply(function, arguments);
        call.done = call.usesLive;
    } else {
        const auto result = Traits::Get(std::apply(function, arguments));
        uint64_t number = Number(result);
        if constexpr (std::is_same_v<Result, Owned<DWORD>>) number &= 0xFFFFFF;
        call.done = number != 0;
        call.Add(number);
        if (call.text) *call.text << "  // " << std::hex << "0x" << number << std::dec;
        if constexpr (Traits::kIsHandle) {
            if (call.done) call.world.Put(result, place, Traits::kSection);
            if constexpr (std::is_class_v<typename Traits::Handle>) {
                if (call.done && std::string_view(name).starts_with("Create")) call.Paint(result);
            }
        }
    }
    if (call.text) *call.text << std::endl;
    const auto after = [&](auto &kind) {
        if constexpr (requires { kind.After(call); }) kind.After(call);
    };
    std::apply([&](auto &...kind) { (after(kind), ...); }, kinds);
}

template <class... Kinds, class Function>
Row MakeRow(Group group, const char *name, Function function) {
    uint32_t code = 0;
    for (const char *next = name; *next; ++next) code = (code ^ static_cast<unsigned char>(*next)) * 0x01000193;
    const auto invoke = [name, function](Call &call) { Invoke<Kinds...>(call, name, function); };
    return {name, group, invoke, code};
}

}  // namespace fuzz

/// A row: the function, and the kinds of its arguments. CALL_AS names a function that stands for another.
#define CALL(function, ...) MakeRow<__VA_ARGS__>(kGroup, #function, function)
#define CALL_AS(function, standIn, ...) MakeRow<__VA_ARGS__>(kGroup, #function, standIn)
