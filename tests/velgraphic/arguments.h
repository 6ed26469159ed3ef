// Calling functions with arguments made up for their parameters.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>

namespace lacquer {

/// A function of an object and of numbers, to be called with as many numbers of an array as it takes. Parameters that
/// are whole numbers are all given `whole`.
template <class Object>
struct NumberFunction {
    const char *name;
    size_t count;
    std::function<int(Object, const float *)> call;

    template <class... Numbers>
    NumberFunction(const char *functionName, int (*function)(Object, Numbers...), int whole = 0)
        : name(functionName), count((0 + ... + size_t{std::is_same_v<Numbers, float>})) {
        call = [function, whole](Object object, const float *numbers) {
            const auto next = [&]<class Number>(std::type_identity<Number>) -> Number {
                if constexpr (std::is_same_v<Number, float>) return *numbers++;
                return static_cast<Number>(whole);
            };
            return std::apply(function, std::tuple<Object, Numbers...>{object, next(std::type_identity<Numbers>{})...});
        };
    }
};

/// Something for a parameter: a short name, or whatever else it is taken for, for a pointer; 1 for a number.
template <class Parameter>
Parameter Anything() {
    static std::array<std::byte, 64> room{std::byte{'a'}};
    if constexpr (std::is_pointer_v<Parameter>) {
        return reinterpret_cast<Parameter>(room.data());
    } else {
        return Parameter{1};
    }
}

/// Calls a function without the object that is its first argument.
template <class Result, class Object, class... Parameters>
Result WithoutObject(Result (*function)(Object *, Parameters...)) {
    return function(nullptr, Anything<Parameters>()...);
}

}  // namespace lacquer
