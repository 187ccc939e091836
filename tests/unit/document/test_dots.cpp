#include "document/dots.h"

#include "support/rows.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::nan("");

struct SumRow : Row {
    qint64 sum;
    int dots;
};

struct DoubleRow : Row {
    double value;
    int dots;
};

class Saturating : public testing::TestWithParam<SumRow> {};
class Rounding : public testing::TestWithParam<DoubleRow> {};
class Truncating : public testing::TestWithParam<DoubleRow> {};

const SumRow Sums[] = {
    {"ZeroStays", 0, 0},
    {"APositiveSumStays", 906, 906},
    {"ANegativeSumStays", -7, -7},
    {"TheHighestStays", Highest, Highest},
    {"TheLowestStays", Lowest, Lowest},
    {"OneAboveTheHighestBecomesTheHighest", qint64(Highest) + 1, Highest},
    {"OneBelowTheLowestBecomesTheLowest", qint64(Lowest) - 1, Lowest},
    {"TheHighest64BitSumBecomesTheHighest", std::numeric_limits<qint64>::max(), Highest},
    {"TheLowest64BitSumBecomesTheLowest", std::numeric_limits<qint64>::min(), Lowest},
};

const DoubleRow Rounded[] = {
    {"AHalfGoesUp", 0.5, 1},
    {"LessThanAHalfGoesDown", 0.4999, 0},
    {"TwoAndAHalfGoesUp", 2.5, 3},
    {"MinusAHalfGoesUpToZero", -0.5, 0},
    {"MinusOneAndAHalfGoesUp", -1.5, -1},
    {"MinusOnePointSixGoesDown", -1.6, -2},
    {"WholeNumbersStay", 832.0, 832},
    {"TheHighestStays", 2147483647.0, Highest},
    {"OneBelowTheHighestStays", 2147483646.0, Highest - 1},
    {"TheLowestStays", -2147483648.0, Lowest},
    {"OneAboveTheLowestStays", -2147483647.0, Lowest + 1},
    {"MoreThanTheHighestSaturates", 2147483648.0, Highest},
    {"LessThanTheLowestSaturates", -2147483649.0, Lowest},
    {"AHugeNumberSaturates", 1e300, Highest},
    {"AHugeNegativeNumberSaturates", -1e300, Lowest},
    {"InfinitySaturates", Infinity, Highest},
    {"NegativeInfinitySaturates", -Infinity, Lowest},
    {"WhatIsNotANumberIsZero", NotANumber, 0},
};

const DoubleRow Truncated[] = {
    {"TheFractionIsDropped", 2.9, 2},
    {"ANegativeFractionIsDroppedTowardsZero", -2.9, -2},
    {"WholeNumbersStay", 576.0, 576},
    {"TheHighestStays", 2147483647.0, Highest},
    {"TheHighestAndAFractionIsTheHighest", 2147483647.5, Highest},
    {"TheLowestStays", -2147483648.0, Lowest},
    {"AHugeNumberSaturates", 1e300, Highest},
    {"AHugeNegativeNumberSaturates", -1e300, Lowest},
    {"InfinitySaturates", Infinity, Highest},
    {"NegativeInfinitySaturates", -Infinity, Lowest},
    {"WhatIsNotANumberIsZero", NotANumber, 0},
};

} // namespace

TEST_P(Saturating, KeepsSumsWithin32Bits) {
    EXPECT_EQ(velnor::saturate(GetParam().sum), GetParam().dots);
}

TEST_P(Rounding, HalvesGoUpward) {
    EXPECT_EQ(velnor::roundToDots(GetParam().value), GetParam().dots);
}

TEST_P(Truncating, GoesTowardsZero) {
    EXPECT_EQ(velnor::truncateToDots(GetParam().value), GetParam().dots);
}

INSTANTIATE_TEST_SUITE_P(Dots, Saturating, testing::ValuesIn(Sums), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Dots, Rounding, testing::ValuesIn(Rounded), RuleAsName());
INSTANTIATE_TEST_SUITE_P(Dots, Truncating, testing::ValuesIn(Truncated), RuleAsName());
