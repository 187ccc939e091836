#include "api/call_guard.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>

using velnor::guarded;
using velnor::withHandler;

namespace {

class WithHandler : public testing::Test {
protected:
    ScratchFolder folder;
    VelnorXml xml{folder.utf8Path(QStringLiteral("page.xml")).constData(), nullptr, nullptr};
};

TEST_F(WithHandler, ANullHandlerFailsBeforeTheWork) {
    bool worked = false;
    EXPECT_EQ(withHandler(nullptr,
                          [&worked](VelnorXml&) {
                              worked = true;
                              return 0;
                          }),
              -1);
    EXPECT_FALSE(worked);
}

TEST_F(WithHandler, TheWorkReceivesTheHandlerBehindThePointer) {
    const VelnorXml* received = nullptr;
    withHandler(&xml, [&received](VelnorXml& handler) {
        received = &handler;
        return 0;
    });
    EXPECT_EQ(received, &xml);
}

TEST_F(WithHandler, ZeroStaysZero) {
    EXPECT_EQ(withHandler(&xml, [](VelnorXml&) { return 0; }), 0);
}

TEST_F(WithHandler, EveryOtherResultBecomesMinusOne) {
    for (const int result : {1, -1, 2, 256, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(withHandler(&xml, [result](VelnorXml&) { return result; }), -1) << result;
    }
}

TEST_F(WithHandler, ExhaustedMemoryFails) {
    EXPECT_EQ(withHandler(&xml, [](VelnorXml&) -> int { throw std::bad_alloc(); }), -1);
}

TEST_F(WithHandler, AnyExceptionFails) {
    EXPECT_EQ(withHandler(&xml, [](VelnorXml&) -> int { throw std::runtime_error("x"); }), -1);
    EXPECT_EQ(withHandler(&xml, [](VelnorXml&) -> int { throw 7; }), -1);
}

TEST(Guarded, TheResultOfTheWorkIsHandedOn) {
    EXPECT_EQ(guarded(-1, [] { return 7; }), 7);
}

TEST(Guarded, ExhaustedMemoryGivesTheFailureValue) {
    EXPECT_EQ(guarded(-3, []() -> int { throw std::bad_alloc(); }), -3);
}

TEST(Guarded, AnyExceptionGivesTheFailureValue) {
    EXPECT_EQ(guarded(-3, []() -> int { throw std::runtime_error("x"); }), -3);
    EXPECT_EQ(guarded(-3, []() -> int { throw "text"; }), -3);
}

TEST(Guarded, APointerFailsAsNull) {
    int value = 0;
    EXPECT_EQ(guarded<void*>(nullptr, [&value]() -> void* { return &value; }), &value);
    EXPECT_EQ(guarded<void*>(nullptr, []() -> void* { throw std::bad_alloc(); }), nullptr);
}

} // namespace
