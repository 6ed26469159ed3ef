// The target for libFuzzer. Its mutations go by whole calls as often as by bytes.

#include <cstring>

#include "program.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed);

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz::RunProgram({data, size}, {}, nullptr);
    return 0;
}

size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed) {
    using namespace fuzz;
    uint64_t state = seed;
    const size_t calls = size / kRecordSize, at = calls > 0 ? NextRandom(state) % calls : 0;
    uint8_t *record = data + at * kRecordSize;
    const bool fits = (calls + 1) * kRecordSize <= maxSize && calls < kMaxCalls;
    switch (NextRandom(state) % 5) {
        case 0: {  // another call in between
            if (!fits) break;
            std::memmove(record + kRecordSize, record, (calls - at) * kRecordSize);
            for (size_t i = 0; i < kRecordSize; ++i) record[i] = static_cast<uint8_t>(NextRandom(state));
            NameRow(record, Calls()[NextRandom(state) % Calls().size()]);
            return (calls + 1) * kRecordSize;
        }
        case 1:  // one call fewer
            if (calls < 2) break;
            std::memmove(record, record + kRecordSize, (calls - at - 1) * kRecordSize);
            return (calls - 1) * kRecordSize;
        case 2:  // the arguments of one call
            if (calls < 1) break;
            LLVMFuzzerMutate(record + 4, kRecordSize - 4, kRecordSize - 4);
            return calls * kRecordSize;
        default: break;
    }
    return LLVMFuzzerMutate(data, size, maxSize);
}
