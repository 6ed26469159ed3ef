// The linker sends every reference to `lacquer::Kernels` and `lacquer::ImageKernels` here (`--wrap`), so that the
// library itself has no part in it.

#include "tables.h"

#include <cstdio>
#include <cstdlib>

#include "pipeline/table/image_table.h"
#include "pipeline/table/kernel_table.h"

namespace {
const lacquer::KernelTable *tableInUse = nullptr;
const lacquer::ImageTable *imageTableInUse = nullptr;
}  // namespace

// A reference is returned as an address.
extern "C" {
const lacquer::KernelTable *__real__ZN7lacquer7KernelsEv();
const lacquer::KernelTable *__wrap__ZN7lacquer7KernelsEv();
const lacquer::KernelTable *__wrap__ZN7lacquer7KernelsEv() {
    return tableInUse ? tableInUse : __real__ZN7lacquer7KernelsEv();
}
const lacquer::ImageTable *__real__ZN7lacquer12ImageKernelsEv();
const lacquer::ImageTable *__wrap__ZN7lacquer12ImageKernelsEv();
const lacquer::ImageTable *__wrap__ZN7lacquer12ImageKernelsEv() {
    return imageTableInUse ? imageTableInUse : __real__ZN7lacquer12ImageKernelsEv();
}
}

namespace fuzz {
namespace {

using lacquer::CpuFeatures;

struct Outcome {
    const char *name;
    uint64_t results, pixels;
    bool operator==(const Outcome &) const = default;
};

std::vector<Outcome> OutcomesOn(const CpuFeatures &features, std::span<const uint8_t> program, const Rules &rules) {
    const lacquer::KernelTable table = lacquer::BuildKernelTable(features);
    const lacquer::ImageTable imageTable = lacquer::BuildImageTable(features);
    std::vector<Outcome> outcomes;
    tableInUse = &table;
    imageTableInUse = &imageTable;
    RunProgram(program, rules, nullptr, [&](const CallReport &call) {
        outcomes.push_back({call.row.name, call.results, call.pixels});
    });
    tableInUse = nullptr;
    imageTableInUse = nullptr;
    return outcomes;
}

}  // namespace

size_t CompareTables(unsigned group, std::span<const uint8_t> program, const Rules &rules) {
    // Bicubic weights are finer with MMX.
    const CpuFeatures best{true, true, true, true, lacquer::CachedCpuFeatures().avx2};
    static const std::vector<CpuFeatures> kGroups[kTableGroups] = {
        {{}, {true, false, true, false}, {true, false, true, true}},
        {{true, true, false, false}, {true, true, true, false}, {true, true, true, true}, best},
        {{}, best}};
    Rules comparable = rules;
    comparable.comparable = true;
    comparable.fineWeights = group != 2;
    std::vector<Outcome> expected;
    for (const CpuFeatures &features : kGroups[group]) {
        const std::vector<Outcome> outcomes = OutcomesOn(features, program, comparable);
        if (expected.empty()) expected = outcomes;
        for (size_t i = 0; i < outcomes.size(); ++i) {
            if (outcomes[i] == expected[i]) continue;
            std::fprintf(stderr, "lacquer_fuzz: call %zu, %s, gives other %s with mmx %d, sse %d, sse2 %d, avx2 %d\n",
                         i + 1, outcomes[i].name, outcomes[i].results == expected[i].results ? "pixels" : "results",
                         features.mmx, features.sse, features.sse2, features.avx2);
            std::abort();
        }
    }
    return expected.size();
}

}  // namespace fuzz
