// From an exported function and the kinds of its arguments to a row of the table.
#pragma once

#include <ostream>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "calls.h"

namespace fuzz {

/// Writes a number, or a record as the numbers that it consists of.
template <class Value>
void WriteValue(std::ostream &out, const Value &value) {
    if constexpr (std::is_floating_point_v<Value>) {
        out << value;  // as "nan" and "inf" where it is no number
    } else if constexpr (std::is_same_v<Value, DWORD>) {
        out << (value < 65536 ? "" : "0x") << (value < 65536 ? std::dec : std::hex) << value << std::dec;
    } else if constexpr (std::is_integral_v<Value>) {
        out << +value;
    } else if constexpr (std::is_null_pointer_v<Value>) {
        out << '0';
    } else if constexpr (std::is_same_v<Value, const char *>) {
        out << '"' << (value ? value : "0") << '"';
    } else if constexpr (std::is_pointer_v<Value>) {
        using Record = std::remove_cv_t<std::remove_pointer_t<Value>>;
        out << (!value ? "0" : std::is_const_v<std::remove_pointer_t<Value>> ? "&" : "&out");
        if constexpr (std::is_const_v<std::remove_pointer_t<Value>> && std::is_class_v<Record>) {
            if (value) WriteValue(out, *value);
        }
    } else {
        using Part = std::conditional_t<std::is_same_v<Value, velPointF> || std::is_same_v<Value, GeoRect>, float,
                                        std::conditional_t<alignof(Value) == 1, BYTE, LONG>>;
        Part parts[sizeof(Value) / sizeof(Part)];
        std::memcpy(parts, &value, sizeof parts);
        for (const Part &part : parts) WriteValue(out << (&part == parts ? "{" : ", "), part);
        out << '}';
    }
}

namespace invoking {

/// Whose a handle is that a function gives.
template <class Type>
Section SectionOf(std::string_view name) {
    return name.starts_with("Get") && kShape<Type>.lent > 0 ? Section::Lent : Section::Own;
}

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

/// Kinds write themselves or, the plain ones, the values that they give.
template <class... Kinds>
void WriteList(std::ostream &out, Kinds &...kinds) {
    const char *separator = "";
    [[maybe_unused]] const auto writeValue = [&](const auto &value) {
        WriteValue(out << std::exchange(separator, ", "), value);
    };
    [[maybe_unused]] const auto write = [&](auto &kind) {
        if constexpr (requires { kind.Write(out); }) {
            kind.Write(out << std::exchange(separator, ", "));
        } else {
            std::apply([&](const auto &...values) { (writeValue(values), ...); }, AsTuple(kind.Value()));
        }
    };
    (write(kinds), ...);
}

/// Puts a handle that a call has given into its place.
template <class Type>
void Keep(Call &call, std::string_view name, Type handle, size_t place) {
    call.world.Put(handle, place, SectionOf<Type>(name));
    if constexpr (std::is_class_v<Type> && !std::is_same_v<Type, Entry>) {
        if (name.starts_with("Create")) call.Paint(handle);
    }
}

}  // namespace invoking

template <class... Kinds, class Function>
void Invoke(Call &call, const char *name, Function function) {
    using namespace invoking;
    std::tuple<Kinds...> kinds{Kinds(call)...};
    auto arguments = std::apply([](auto &...kind) { return std::tuple_cat(AsTuple(kind.Value())...); }, kinds);
    using Result = decltype(std::apply(function, arguments));
    constexpr bool kGivesHandle = kShape<Result>.own != 0;
    size_t place = 0;
    if constexpr (kGivesHandle) place = PlaceFor<Result>(call, SectionOf<Result>(name));
    if (call.isUndefined) return;
    if (call.text) {
        if constexpr (kGivesHandle) *call.text << kShape<Result>.name << '[' << place << "] = ";
        *call.text << name << '(';
        std::apply([&](auto &...kind) { WriteList(*call.text, kind...); }, kinds);
        *call.text << ");" << std::flush;
    }
    if constexpr (std::is_void_v<Result>) {
        std::apply(function, arguments);
        call.done = call.usesLive;
    } else {
        const Result result = std::apply(function, arguments);
        const uint64_t number = Number(result);
        call.done = number != 0;
        call.Add(number);
        if (call.text) *call.text << "  // " << std::hex << "0x" << number << std::dec;
        if constexpr (kGivesHandle) {
            if (call.done) Keep(call, name, result, place);
        }
    }
    if (call.text) *call.text << std::endl;
    const auto after = [&](auto &kind) {
        if constexpr (requires { kind.After(call); }) kind.After(call);
    };
    std::apply([&](auto &...kind) { (after(kind), ...); }, kinds);
}

template <class... Kinds, class Function>
Row MakeRowOf(Group group, const char *name, Function function) {
    uint32_t code = 0;
    for (const char *next = name; *next; ++next) code = (code ^ static_cast<unsigned char>(*next)) * 0x01000193;
    const auto invoke = [name, function](Call &call) { Invoke<Kinds...>(call, name, function); };
    return {name, group, invoke, code};
}

/// The kind that a type stands for unless a row says otherwise.
template <class Type>
struct KindOf;

template <class... Kinds, class Result, class... Types>
Row MakeRow(Group group, const char *name, Result (*function)(Types...)) {
    if constexpr (sizeof...(Kinds) > 0) {
        return MakeRowOf<Kinds...>(group, name, function);
    } else {
        return MakeRowOf<typename KindOf<Types>::Kind...>(group, name, function);
    }
}

}  // namespace fuzz

/// A row: the function, and the kinds of its arguments; without them, those that its type stands for. CALL_AS names a
/// function that stands for another.
#define CALL(function, ...) MakeRow<__VA_ARGS__>(kGroup, #function, function)
#define CALL_AS(function, standIn, ...) MakeRow<__VA_ARGS__>(kGroup, #function, standIn)

/// `row(name)` for each name, with commas between.
#define FOR_EACH(row, ...) FUZZ_SCAN(FUZZ_NEXT(row, __VA_ARGS__))
#define FUZZ_NEXT(row, name, ...) row(name) __VA_OPT__(, FUZZ_LATER FUZZ_PARENTHESES(row, __VA_ARGS__))
#define FUZZ_LATER() FUZZ_NEXT
#define FUZZ_PARENTHESES ()
#define FUZZ_SCAN(...) FUZZ_SCAN3(FUZZ_SCAN3(FUZZ_SCAN3(FUZZ_SCAN3(__VA_ARGS__))))
#define FUZZ_SCAN3(...) FUZZ_SCAN2(FUZZ_SCAN2(FUZZ_SCAN2(FUZZ_SCAN2(__VA_ARGS__))))
#define FUZZ_SCAN2(...) FUZZ_SCAN1(FUZZ_SCAN1(FUZZ_SCAN1(FUZZ_SCAN1(__VA_ARGS__))))
#define FUZZ_SCAN1(...) __VA_ARGS__
