// Every exported function with every kind of wrong handle and with null for each pointer. That gives the documented
// failure and changes nothing: no object, no out-record, no slot of the handle table.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "handle_world.h"

namespace lacquer {
namespace {

constexpr unsigned char kUntouched = 0xA5;

class RefusalTest : public testing::TestWithParam<ExportedCall> {
protected:
    static void ExpectRefused(const HandleWorld &world, const std::vector<uint32_t> &before, Arguments arguments) {
        std::memset(outRecord, kUntouched, sizeof outRecord);
        ASSERT_EQ(GetParam().refused, GetParam().call(arguments));
        ASSERT_TRUE(std::all_of(std::begin(outRecord), std::end(outRecord),
                                [](unsigned char byte) { return byte == kUntouched; }));
        ASSERT_EQ(before, world.Snapshot());
    }

    static void ExpectWorks(Arguments arguments) {
        EXPECT_TRUE(HasWorked(GetParam(), GetParam().call(arguments), arguments));
    }
};

TEST_P(RefusalTest, OfAWrongHandleChangesNothing) {
    const HandleWorld world;
    const std::vector<uint32_t> before = world.Snapshot();
    const std::vector<Argument> good = world.ArgumentsFor(GetParam());
    std::vector<Argument> none = good;
    size_t handles = 0;
    for (size_t i = 0; i < good.size(); ++i) {
        if (!IsHandle(good[i].letter)) continue;
        none[i].word = 0;
        for (const uintptr_t wrong : world.Wrong(good[i].letter, handles++)) {
            SCOPED_TRACE(testing::Message() << "argument " << i << " is 0x" << std::hex << wrong);
            std::vector<Argument> arguments = good;
            arguments[i].word = wrong;
            ExpectRefused(world, before, arguments);
        }
    }
    if (handles > 0) ExpectRefused(world, before, none);
}

TEST_P(RefusalTest, OfNullChangesNothingWhereItHasNoMeaning) {
    const HandleWorld world;
    const std::vector<uint32_t> before = world.Snapshot();
    for (size_t i = 0; i < GetParam().arguments.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "argument " << i);
        std::vector<Argument> arguments = world.ArgumentsFor(GetParam());
        if (std::string_view("<>VPG").find(arguments[i].letter) == std::string_view::npos) continue;
        arguments[i].word = 0;
        if (GetParam().optional.find(static_cast<char>('0' + i)) == std::string_view::npos) {
            ExpectRefused(world, before, arguments);
        } else {
            const HandleWorld another;
            arguments = another.ArgumentsFor(GetParam());
            arguments[i].word = 0;
            ExpectWorks(arguments);
        }
    }
}

TEST_P(RefusalTest, IsNotForTheUpperBitsOfAGoodHandle) {
    for (const uintptr_t upper : {uintptr_t{0}, kUpperGarbage, ~uintptr_t{0xFFFFFFFF}}) {
        const HandleWorld world;
        std::vector<Argument> arguments = world.ArgumentsFor(GetParam());
        for (Argument &argument : arguments) {
            if (IsHandle(argument.letter)) argument.word |= upper;
        }
        ExpectWorks(arguments);
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, RefusalTest, testing::ValuesIn(ExportedCalls()), testing::PrintToStringParamName());

}  // namespace
}  // namespace lacquer
