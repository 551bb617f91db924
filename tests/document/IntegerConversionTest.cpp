#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/document/NumberReaders.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  const char* text;
  int expected;  // with 7 as the default
};

const int kLeast = -2147483647 - 1;
const int kGreatest = 2147483647;

const Row kRows[] = {
    {"Empty", "", 7},
    {"OneBlank", " ", 7},
    {"AllKindsOfWhiteSpace", " \t\n\v\f\r", 7},
    {"Zero", "0", 0},
    {"Digits", "12", 12},
    {"Minus", "-42", -42},
    {"Plus", "+5", 5},
    {"BlanksBefore", "  12", 12},
    {"TabBefore", "\t12", 12},
    {"NewlineBefore", "\n12", 12},
    {"AllKindsOfWhiteSpaceBefore", " \t\n\v\f\r-12", -12},
    {"BlankBehind", "12 ", 12},
    {"TextBehind", "12abc", 12},
    {"UnitBehindAndBlankBefore", " 12px", 12},
    {"AnotherNumberBehind", "1 2", 1},
    {"SignBehind", "5-", 5},
    {"Fraction", "3.7", 3},
    {"FractionWithoutLeadingDigit", ".5", 0},
    {"Exponent", "1e3", 1},
    {"Hexadecimal", "0x1F", 0},
    {"LeadingZeroIsNotOctal", "010", 10},
    {"GroupsAreNoPartOfTheClassicLocale", "1,234", 1},
    {"Letters", "abc", 0},
    {"LettersBeforeDigits", "a1", 0},
    {"OnlyMinus", "-", 0},
    {"OnlyPlus", "+", 0},
    {"MinusThenBlank", "- 5", 0},
    {"TwoSigns", "--5", 0},
    {"PlusMinus", "+-5", 0},
    {"TruthValue", "true", 0},
    {"NotANumber", "nan", 0},
    {"Infinity", "inf", 0},
    {"NoBreakSpaceBefore",
     "\xC2\xA0"
     "5",
     0},
    {"Greatest", "2147483647", kGreatest},
    {"Least", "-2147483648", kLeast},
    {"GreatestWithLeadingZeros", "00000000000000000000002147483647", kGreatest},
    {"OneBeyondTheGreatest", "2147483648", kGreatest},
    {"OneBelowTheLeast", "-2147483649", kLeast},
    {"AllBitsOfAnUnsignedInt", "4294967295", kGreatest},
    {"FarBeyondTheGreatest", "99999999999999999999999999999999", kGreatest},
    {"FarBelowTheLeast", "-99999999999999999999999999999999", kLeast},
    {"BeyondTheGreatestWithTextBehind", "99999999999px", kGreatest},
};

using ReadRow = std::tuple<NumberReader<int>, Row>;

class AnIntFromText : public testing::TestWithParam<ReadRow> {};

TEST_P(AnIntFromText, FollowsTheTable) {
  const auto& [reader, row] = GetParam();
  EXPECT_EQ(row.expected, reader.read(row.text, 7));
}

INSTANTIATE_TEST_SUITE_P(Readers, AnIntFromText,
                         testing::Combine(testing::ValuesIn(kIntReaders), testing::ValuesIn(kRows)),
                         [](const testing::TestParamInfo<ReadRow>& read) {
                           return std::string(std::get<0>(read.param).name) + "_" +
                                  std::get<1>(read.param).name;
                         });

class AnIntegerReader : public testing::TestWithParam<NumberReader<int>> {};

TEST_P(AnIntegerReader, GivesAnyDefaultForAnEmptyText) {
  EXPECT_EQ(0, GetParam().read("", 0));
  EXPECT_EQ(-1, GetParam().read("", -1));
  EXPECT_EQ(kLeast, GetParam().read("", kLeast));
  EXPECT_EQ(kGreatest, GetParam().read(" ", kGreatest));
}

TEST_P(AnIntegerReader, TakesZeroForANumberNotForAnAbsentOne) {
  EXPECT_EQ(0, GetParam().read("0", 7));
}

INSTANTIATE_TEST_SUITE_P(Readers, AnIntegerReader, testing::ValuesIn(kIntReaders),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace analytics
