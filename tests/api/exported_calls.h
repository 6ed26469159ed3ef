// Every exported function with a call of it. What it is called with follows from its type.
#pragma once

#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <bit>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace lacquer {

/// What calls write to, whatever record they take it for.
alignas(16) inline unsigned char outRecord[1024];

/// Four records of each type that calls read.
template <class Record>
inline const Record kSamples[4]{};
#define SAMPLES(Record, ...) \
    template <>              \
    inline const Record kSamples<Record>[4] = {__VA_ARGS__}
SAMPLES(RECT, {0, 0, 2, 2}, {1, 1, 4, 3}, {0, 0, 1, 1}, {2, 2, 3, 3});
SAMPLES(GeoRect, {0, 0, 2, 2});
SAMPLES(GeoStyle, {0xFF112233, 0xFF445566, 1, {}});
SAMPLES(ShadowStyle, {0xFF112233, 1, 1, 2, 0, {}, 1, 0});
SAMPLES(TextureMode, {5, 5, {0, 0, 2, 2}});
SAMPLES(POINT, {0, 0}, {3, 0}, {0, 3});
SAMPLES(float, 1, 2, 3, 1);
SAMPLES(WCHAR, 'A', 'n', 'y', 0);

/// How a type travels: 'n' a number, '<' a record to read, '>' one to write, 's' a record by value, '0' what is always
/// null; the other letters are handles, and objects of the companion.
template <class Type>
inline constexpr char kLetter = std::is_arithmetic_v<Type>                     ? 'n'
                                : !std::is_pointer_v<Type>                     ? 's'
                                : std::is_const_v<std::remove_pointer_t<Type>> ? '<'
                                                                               : '>';
#define LETTER(Type, letter) \
    template <>              \
    inline constexpr char kLetter<Type> = letter
LETTER(void, 'v');
LETTER(HGCANVAS, 'c');
LETTER(HGBITMAP, 'b');
LETTER(HGTEXTURE, 't');
LETTER(HDC, 'D');
LETTER(HBITMAP, 'H');
LETTER(HRGN, 'R');
LETTER(velCanvas *, 'V');
LETTER(velPath *, 'P');
LETTER(velGradient *, 'G');
LETTER(velLottie *, '0');
LETTER(HandleTable *, '0');
LETTER(HWND, '0');

/// The function that is called for an exported one.
template <auto kFunction>
constexpr auto kStandIn = kFunction;
#define STAND_IN(exported, function) \
    template <>                      \
    constexpr auto kStandIn<exported> = function

struct Argument {
    char letter;
    uintptr_t word;  ///< a handle or a pointer
    double number;
};
using Arguments = std::span<const Argument>;

/// One exported function and a call of it.
struct ExportedCall {
    const char *name;
    std::vector<Argument> arguments;  ///< all but the handles and objects
    char result;                      ///< its letter
    uint64_t (*call)(Arguments arguments);
    uint64_t refused = 0;
    bool isMute = false;             ///< gives `refused` always
    std::string_view optional = {};  ///< the places of pointers that may be null, as digits

    friend void PrintTo(const ExportedCall &row, std::ostream *out) { *out << row.name; }
};

/// Whether a call with live objects did its work. Deletes what was made.
bool HasWorked(const ExportedCall &row, uint64_t result, Arguments arguments);

/// What does not follow from the types of some functions: their number arguments, all 2 else (bytes 200), and the rest.
struct Exception {
    std::string_view names;
    std::vector<double> numbers = {};
    std::string_view optional = {};
    uint64_t refused = 0;
    bool isMute = false;
};

namespace exported_calls {

template <class Type>
Argument DefaultArgument() {
    constexpr char kOwn = kLetter<Type>;
    Argument argument{kOwn, 0, std::is_same_v<Type, BYTE> ? 200.0 : 2.0};
    if constexpr (kOwn == '<' && !std::is_same_v<Type, const void *>) {
        argument.word = reinterpret_cast<uintptr_t>(kSamples<std::remove_cv_t<std::remove_pointer_t<Type>>>);
    } else if (kOwn == '<' || kOwn == '>') {
        argument.word = reinterpret_cast<uintptr_t>(outRecord);
    }
    return argument;
}

template <class Type>
Type As(const Argument &argument) {
    if constexpr (kLetter<Type> == 'n') {
        return static_cast<Type>(argument.number);
    } else if constexpr (std::is_pointer_v<Type>) {
        return reinterpret_cast<Type>(argument.word);
    } else if constexpr (kLetter<Type> == 's') {
        return kSamples<Type>[0];
    } else {
        return Type{argument.word};
    }
}

/// A result as a number.
template <class Result>
uint64_t Number(Result result) {
    if constexpr (std::is_pointer_v<Result>) {
        return reinterpret_cast<uintptr_t>(result);
    } else if constexpr (std::is_class_v<Result>) {
        return result.value;
    } else if constexpr (std::is_same_v<Result, float>) {
        return std::bit_cast<uint32_t>(result);
    } else {
        return static_cast<uint32_t>(result);
    }
}

template <auto kFunction>
struct Derived;
template <class Result, class... Types, Result (*kFunction)(Types...)>
struct Derived<kFunction> {
    static uint64_t Call(Arguments arguments) {
        const auto call = [&]<size_t... i>(std::index_sequence<i...>) { return kFunction(As<Types>(arguments[i])...); };
        if constexpr (std::is_void_v<Result>) {
            call(std::index_sequence_for<Types...>());
            return 0;
        } else {
            return Number(call(std::index_sequence_for<Types...>()));
        }
    }
    static ExportedCall Row(const char *name) { return {name, {DefaultArgument<Types>()...}, kLetter<Result>, Call}; }
};

}  // namespace exported_calls

template <auto kFunction>
ExportedCall MakeCall(const char *name, std::span<const Exception> exceptions) {
    ExportedCall row = exported_calls::Derived<kFunction>::Row(name);
    for (const Exception &exception : exceptions) {
        if ((' ' + std::string(exception.names) + ' ').find(' ' + std::string(name) + ' ') == std::string::npos)
            continue;
        size_t used = 0;
        for (Argument &argument : row.arguments) {
            if (argument.letter == 'n' && used < exception.numbers.size()) {
                argument.number = exception.numbers[used++];
            }
        }
        row.refused = exception.refused;
        row.isMute = exception.isMute;
        row.optional = exception.optional;
    }
    return row;
}

/// One row for each function that the library itself exports.
const std::vector<ExportedCall> &ExportedCalls();

}  // namespace lacquer
