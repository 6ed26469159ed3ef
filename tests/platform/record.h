// Random programs, and what a system does of them as one number. The numbers in the tests are those of the system's own
// GDI, on which the same tests run: it is the model of the headless one.
#pragma once

#include <cstdlib>
#include <iostream>
#include <random>

#include "gdi_objects.h"

namespace lacquer {

/// Numbers that are the same on every run and system.
class Random {
public:
    explicit Random(unsigned seed) : generator_(seed) {}

    int Between(int low, int high) {
        return low + static_cast<int>(generator_() % static_cast<unsigned>(high - low + 1));
    }
    bool Coin() { return Between(0, 1) != 0; }
    /// Corners of 0 ... 13, in any order, and a region of up to three such rectangles and of `rect`.
    RECT Rect() { return {Between(0, 13), Between(0, 13), Between(0, 13), Between(0, 13)}; }
    OwnedRegion Shape(const RECT &rect = {}) {
        OwnedRegion shape(rect);
        for (int i = Between(0, 3); i > 0; --i) CombineRgn(shape, shape, OwnedRegion(Rect()), RGN_OR);
        return shape;
    }

private:
    std::mt19937 generator_;
};

/// The digest of all that was answered and painted. With LACQUER_PRINT_STEPS set it is printed after every addition:
/// the first line that differs between two systems is the step where they part.
class Record {
public:
    void Add(const std::vector<uint32_t> &words) {
        for (const uint32_t word : words) digest_ = (digest_ ^ word) * 0x100000001B3;
        if (std::getenv("LACQUER_PRINT_STEPS")) std::cout << std::hex << digest_ << '\n';
    }
    void Add(int number) { Add(std::vector{static_cast<uint32_t>(number)}); }
    void Add(const RECT &rect) {
        for (const LONG edge : {rect.left, rect.top, rect.right, rect.bottom}) Add(static_cast<int>(edge));
    }
    uint64_t Digest() const { return digest_; }

private:
    uint64_t digest_ = 0xCBF29CE484222325;
};

}  // namespace lacquer
