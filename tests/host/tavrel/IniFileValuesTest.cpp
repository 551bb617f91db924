#include <ostream>
#include <string>

#include <gtest/gtest.h>
#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace core {
namespace {

IniFile WithValue(const std::string& value) {
  IniFile settings;
  settings.SetValue("Camera", "Value", value);
  return settings;
}

struct Truth {
  const char* name;
  const char* text;
  bool ifFalse;  // the answer with false as the default
  bool ifTrue;
};

void PrintTo(const Truth& row, std::ostream* out) { *out << row.name; }

const Truth kTruths[] = {
    {"True", "true", true, true},
    {"Yes", "yes", true, true},
    {"On", "on", true, true},
    {"One", "1", true, true},
    {"False", "false", false, false},
    {"No", "no", false, false},
    {"Off", "off", false, false},
    {"Zero", "0", false, false},
    {"CapitalTrue", "TRUE", true, true},
    {"MixedFalse", "False", false, false},
    {"MixedOff", "oFF", false, false},
    {"OtherNumber", "2", false, true},
    {"TwoDigits", "10", false, true},
    {"OtherWord", "enabled", false, true},
    {"FirstLetter", "t", false, true},
    {"LeadingBlank", " true", false, true},
    {"TrailingBlank", "false ", false, true},
    {"Empty", "", false, true},
};

class ATruthValue : public testing::TestWithParam<Truth> {};

TEST_P(ATruthValue, IsOneOfEightWordsOrTheDefault) {
  const IniFile settings = WithValue(GetParam().text);
  EXPECT_EQ(GetParam().ifFalse, settings.GetBoolOrDefault("Camera", "Value", false));
  EXPECT_EQ(GetParam().ifTrue, settings.GetBoolOrDefault("Camera", "Value", true));
}

INSTANTIATE_TEST_SUITE_P(Rows, ATruthValue, testing::ValuesIn(kTruths),
                         testing::PrintToStringParamName());

struct Integer {
  const char* name;
  const char* text;
  int expected;  // with 7 as the default
};

void PrintTo(const Integer& row, std::ostream* out) { *out << row.name; }

const Integer kIntegers[] = {
    {"Zero", "0", 0},
    {"Positive", "300", 300},
    {"Negative", "-1", -1},
    {"WithPlus", "+5", 5},
    {"LeadingZero", "010", 10},
    {"Largest", "2147483647", 2147483647},
    {"Smallest", "-2147483648", -2147483647 - 1},
    {"AboveTheLargest", "2147483648", 7},
    {"BelowTheSmallest", "-2147483649", 7},
    {"BeyondAllTypes", "99999999999999999999", 7},
    {"Hexadecimal", "0x10", 7},
    {"Fraction", "1.5", 7},
    {"TrailingText", "12px", 7},
    {"TrailingBlank", "12 ", 7},
    {"LeadingBlank", " 12", 7},
    {"SignAlone", "-", 7},
    {"Word", "twelve", 7},
    {"Empty", "", 7},
};

class AnInteger : public testing::TestWithParam<Integer> {};

TEST_P(AnInteger, IsWholeAndInRangeOrTheDefault) {
  EXPECT_EQ(GetParam().expected, WithValue(GetParam().text).GetIntOrDefault("Camera", "Value", 7));
}

INSTANTIATE_TEST_SUITE_P(Rows, AnInteger, testing::ValuesIn(kIntegers),
                         testing::PrintToStringParamName());

TEST(AnInteger, WithANullByteGivesTheDefault) {
  EXPECT_EQ(7, WithValue(std::string("12\0", 3)).GetIntOrDefault("Camera", "Value", 7));
}

TEST(AMissingKey, GivesTheDefaults) {
  const IniFile settings = WithValue("1");
  EXPECT_TRUE(settings.GetBoolOrDefault("Camera", "Other", true));
  EXPECT_EQ(7, settings.GetIntOrDefault("Camera", "Other", 7));
}

TEST(AMissingGroup, GivesTheDefaults) {
  const IniFile settings = WithValue("1");
  EXPECT_TRUE(settings.GetBoolOrDefault("Other", "Value", true));
  EXPECT_EQ(7, settings.GetIntOrDefault("Other", "Value", 7));
}

}  // namespace
}  // namespace core
}  // namespace tavrel
