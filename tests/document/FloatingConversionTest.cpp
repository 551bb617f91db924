#include <cmath>
#include <limits>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/document/NumberReaders.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  const char* text;
  double asDouble;  // both with 0.5 as the default
  double asFloat;
};

const double kDoubleMax = std::numeric_limits<double>::max();
const double kFloatMax = std::numeric_limits<float>::max();
const double kLeastDouble = std::numeric_limits<double>::denorm_min();
const double kLeastFloat = std::numeric_limits<float>::denorm_min();

const Row kRows[] = {
    {"Empty", "", 0.5, 0.5},
    {"OneBlank", " ", 0.5, 0.5},
    {"AllKindsOfWhiteSpace", " \t\n\v\f\r", 0.5, 0.5},
    {"Zero", "0", 0, 0},
    {"Digits", "12", 12, 12},
    {"Fraction", "0.25", 0.25, 0.25},
    {"RoundedToEachPrecision", "3.3", 3.3, 3.299999952316284},
    {"Minus", "-42.5", -42.5, -42.5},
    {"Plus", "+5", 5, 5},
    {"WhiteSpaceBefore", " \t\n\v\f\r1.5", 1.5, 1.5},
    {"BlankAndUnitBehind", "0.25 m", 0.25, 0.25},
    {"TextBehind", "12abc", 12, 12},
    {"AnotherPointBehind", "1.5.3", 1.5, 1.5},
    {"AnotherNumberBehind", "1 2", 1, 1},
    {"SignBehind", "5-", 5, 5},
    {"WithoutLeadingDigit", ".5", 0.5, 0.5},
    {"MinusWithoutLeadingDigit", "-.75", -0.75, -0.75},
    {"WithoutDigitBehindThePoint", "5.", 5, 5},
    {"Exponent", "1e3", 1000, 1000},
    {"ExponentWithSigns", "-25E-2", -0.25, -0.25},
    {"ExponentWithPlus", "1e+2", 100, 100},
    {"TextBehindTheExponent", "1e2x", 100, 100},
    {"FractionBehindTheExponent", "1e2.5", 100, 100},
    {"UnfinishedExponent", "1e", 0, 0},
    {"UnfinishedExponentOfAUnit", "2em", 0, 0},
    {"UnfinishedExponentWithSign", "2e-", 0, 0},
    {"Hexadecimal", "0x1F", 0, 0},
    {"LeadingZeros", "0010.5", 10.5, 10.5},
    {"GroupsAreNoPartOfTheClassicLocale", "1,234", 1, 1},
    {"Letters", "abc", 0, 0},
    {"LettersBeforeDigits", "x1", 0, 0},
    {"OnlyMinus", "-", 0, 0},
    {"OnlyPlus", "+", 0, 0},
    {"OnlyPoint", ".", 0, 0},
    {"MinusThenBlank", "- 5", 0, 0},
    {"TwoSigns", "--5", 0, 0},
    {"NotANumber", "nan", 0, 0},
    {"NotANumberInCapitals", "NaN", 0, 0},
    {"Infinity", "inf", 0, 0},
    {"MinusInfinity", "-infinity", 0, 0},
    {"GreatestFloat", "3.40282346638528859812e+38", kFloatMax, kFloatMax},
    {"BeyondTheGreatestFloat", "3.5e38", 3.5e38, kFloatMax},
    {"BelowTheLeastFloat", "-3.5e38", -3.5e38, -kFloatMax},
    {"GreatestDouble", "1.7976931348623157e308", kDoubleMax, kFloatMax},
    {"BeyondTheGreatest", "1e400", kDoubleMax, kFloatMax},
    {"BelowTheLeast", "-1e400", -kDoubleMax, -kFloatMax},
    {"BeyondTheGreatestWithUnitBehind", "1e400 m", kDoubleMax, kFloatMax},
    {"SmallestFloat", "1.4012984643e-45", 1.4012984643e-45, kLeastFloat},
    {"TooSmallForAFloat", "1e-46", 1e-46, 0},
    {"SmallestDouble", "4.9406564584124654e-324", kLeastDouble, 0},
    {"TooSmallForADouble", "1e-400", 0, 0},
    {"ManyDigits", "0.1000000000000000055511151231257827021181583404541015625", 0.1,
     0.10000000149011612},
};

using ReadRow = std::tuple<NumberReader<double>, Row>;

std::string NameOf(const testing::TestParamInfo<ReadRow>& info) {
  return std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).name;
}

class ADoubleFromText : public testing::TestWithParam<ReadRow> {};

TEST_P(ADoubleFromText, FollowsTheTable) {
  const auto& [reader, row] = GetParam();
  EXPECT_EQ(row.asDouble, reader.read(row.text, 0.5));
}

INSTANTIATE_TEST_SUITE_P(Readers, ADoubleFromText,
                         testing::Combine(testing::ValuesIn(kDoubleReaders),
                                          testing::ValuesIn(kRows)),
                         NameOf);

class AFloatFromText : public testing::TestWithParam<ReadRow> {};

TEST_P(AFloatFromText, FollowsTheTable) {
  const auto& [reader, row] = GetParam();
  EXPECT_EQ(row.asFloat, reader.read(row.text, 0.5));
}

INSTANTIATE_TEST_SUITE_P(Readers, AFloatFromText,
                         testing::Combine(testing::ValuesIn(kFloatReaders),
                                          testing::ValuesIn(kRows)),
                         NameOf);

class AReaderOfDoubles : public testing::TestWithParam<NumberReader<double>> {};

TEST_P(AReaderOfDoubles, GivesTheDefaultUnrounded) {
  EXPECT_EQ(0.1, GetParam().read("", 0.1));
  EXPECT_EQ(kDoubleMax, GetParam().read(" ", kDoubleMax));
}

TEST_P(AReaderOfDoubles, KeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(GetParam().read("-0", 1)));
}

INSTANTIATE_TEST_SUITE_P(Readers, AReaderOfDoubles, testing::ValuesIn(kDoubleReaders),
                         [](const auto& reader) { return reader.param.name; });

class AReaderOfFloats : public testing::TestWithParam<NumberReader<double>> {};

TEST_P(AReaderOfFloats, RoundsTheDefaultToSinglePrecisionToo) {
  EXPECT_EQ(0.10000000149011612, GetParam().read("", 0.1));
  EXPECT_EQ(-16777216.0, GetParam().read(" ", -16777217.0));
}

TEST_P(AReaderOfFloats, GivesAGreaterDefaultAsInfinity) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(infinity, GetParam().read("", 1e300));
  EXPECT_EQ(-infinity, GetParam().read(" ", -kDoubleMax));
}

TEST_P(AReaderOfFloats, KeepsTheSignOfZero) { EXPECT_TRUE(std::signbit(GetParam().read("-0", 1))); }

INSTANTIATE_TEST_SUITE_P(Readers, AReaderOfFloats, testing::ValuesIn(kFloatReaders),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace analytics
