#include "document/dom_values.h"

#include "support/rows.h"

#include <limits>

namespace {

constexpr int Fallback = -77;

struct NumberRow : Row {
    const char* text;
    int number;
};

struct RangeRow : Row {
    const char* text;
    int number; // with the range 0 to 2 and the fallback 1
};

struct FlagRow : Row {
    const char* text;
    bool fallback;
    bool flag;
};

class Integers : public testing::TestWithParam<NumberRow> {};
class IntegersInRange : public testing::TestWithParam<RangeRow> {};
class Flags : public testing::TestWithParam<FlagRow> {};

const NumberRow Numbers[] = {
    {"ZeroConverts", "0", 0},
    {"APositiveNumberConverts", "203", 203},
    {"ANegativeNumberConverts", "-5", -5},
    {"APlusSignIsAccepted", "+5", 5},
    {"LeadingZerosAreDecimal", "010", 10},
    {"BlanksAroundAreAccepted", " \t12\n", 12},
    {"TheHighestConverts", "2147483647", std::numeric_limits<int>::max()},
    {"TheLowestConverts", "-2147483648", std::numeric_limits<int>::min()},
    {"AboveTheHighestDoesNotConvert", "2147483648", Fallback},
    {"BelowTheLowestDoesNotConvert", "-2147483649", Fallback},
    {"AboveSixtyFourBitsDoesNotConvert", "99999999999999999999", Fallback},
    {"AnEmptyTextDoesNotConvert", "", Fallback},
    {"ABlankDoesNotConvert", " ", Fallback},
    {"AWordDoesNotConvert", "abc", Fallback},
    {"AFractionDoesNotConvert", "3.5", Fallback},
    {"AnExponentDoesNotConvert", "1e3", Fallback},
    {"HexadecimalDoesNotConvert", "0x10", Fallback},
    {"AUnitBehindDoesNotConvert", "12px", Fallback},
    {"APerCentSignDoesNotConvert", "50%", Fallback},
    {"ABlankInsideDoesNotConvert", "1 2", Fallback},
    {"AGroupSeparatorDoesNotConvert", "1,000", Fallback},
    {"ALoneMinusDoesNotConvert", "-", Fallback},
};

const RangeRow Ranged[] = {
    {"TheLowestOfTheRangeStays", "0", 0},       {"TheMiddleStays", "1", 1},
    {"TheHighestOfTheRangeStays", "2", 2},      {"AboveTheRangeIsTheFallback", "3", 1},
    {"BelowTheRangeIsTheFallback", "-1", 1},    {"AWordIsTheFallback", "x", 1},
    {"FarAboveIsTheFallback", "2147483647", 1}, {"FarBelowIsTheFallback", "-2147483648", 1},
};

const FlagRow FlagTexts[] = {
    {"OneIsOn", "1", false, true},
    {"TwoIsOn", "2", false, true},
    {"ANegativeNumberIsOn", "-1", false, true},
    {"ZeroIsOff", "0", true, false},
    {"AWordIsTheFallbackOn", "yes", true, true},
    {"AWordIsTheFallbackOff", "yes", false, false},
    {"TheWordTrueIsNoNumber", "true", false, false},
    {"AnEmptyTextIsTheFallbackOn", "", true, true},
    {"AnEmptyTextIsTheFallbackOff", "", false, false},
};

} // namespace

TEST_P(Integers, AreReadInBaseTen) {
    EXPECT_EQ(velnor::integerOr(QString::fromLatin1(GetParam().text), Fallback), GetParam().number);
}

TEST(Integers, OfANullTextAreTheFallback) {
    EXPECT_EQ(velnor::integerOr(QString(), Fallback), Fallback);
}

TEST(Integers, OfAVeryLongTextAreTheFallback) {
    EXPECT_EQ(velnor::integerOr(QString(1000000, QLatin1Char('9')), Fallback), Fallback);
}

TEST_P(IntegersInRange, OutsideTheRangeAreTheFallback) {
    EXPECT_EQ(velnor::integerInRangeOr(QString::fromLatin1(GetParam().text), 0, 2, 1),
              GetParam().number);
}

TEST_P(Flags, AreOnForNumbersOtherThanZero) {
    EXPECT_EQ(velnor::flagOr(QString::fromLatin1(GetParam().text), GetParam().fallback),
              GetParam().flag);
}

INSTANTIATE_TEST_SUITE_P(DomValues, Integers, testing::ValuesIn(Numbers), RuleAsName());
INSTANTIATE_TEST_SUITE_P(DomValues, IntegersInRange, testing::ValuesIn(Ranged), RuleAsName());
INSTANTIATE_TEST_SUITE_P(DomValues, Flags, testing::ValuesIn(FlagTexts), RuleAsName());
