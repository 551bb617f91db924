#include "tests/document/GlobalLocale.h"
#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

/// A value, as an attribute's text, and the integer read from it with 5 as the default.
struct Row {
  const char* name;
  const char* value;
  int expected;
};

constexpr int kLargest = 2147483647;
constexpr int kSmallest = -kLargest - 1;

const Row kRows[] = {
    {"Digits", "80", 80},
    {"Zero", "0", 0},
    {"Negative", "-42", -42},
    {"PlusSign", "+42", 42},
    {"NegativeZero", "-0", 0},
    {"LeadingZerosAreDecimal", "0123", 123},
    {"LeadingBlank", " 7", 7},
    {"LeadingTabAndLineBreak", "&#9;&#10;7", 7},
    {"TrailingBlank", "7 ", 7},
    {"TrailingLetters", "12abc", 12},
    {"Fraction", "1.5", 1},
    {"FractionAlone", ".5", 0},
    {"Exponent", "1e3", 1},
    {"Hexadecimal", "0x10", 0},
    {"SecondNumber", "3 4", 3},
    {"ThousandsComma", "1,234", 1},
    {"Empty", "", 5},
    {"Blank", " ", 5},
    {"Blanks", "  &#9;&#10;&#13; ", 5},
    {"Letters", "abc", 0},
    {"TrueIsNoNumber", "true", 0},
    {"SignAlone", "-", 0},
    {"PlusAlone", "+", 0},
    {"TwoSigns", "--5", 0},
    {"BlankBehindSign", "- 5", 0},
    {"NoBreakSpaceIsNoBlank", "&#160;7", 0},
    {"OtherDigits", "&#x0667;", 0},
    {"Largest", "2147483647", kLargest},
    {"BeyondLargest", "2147483648", kLargest},
    {"FarBeyondLargest", "99999999999999999999999999", kLargest},
    {"Smallest", "-2147483648", kSmallest},
    {"BeyondSmallest", "-2147483649", kSmallest},
    {"FarBeyondSmallest", "-99999999999999999999999999", kSmallest},
    {"BeyondLargestWithLetters", "4294967296px", kLargest},
};

class AnIntegerItem : public tests::ProfileTest {
 protected:
  void ParseItem(const std::string& attributes) {
    Parse("<tt:rule><tt:Parameters><tt:SimpleItem Name='a' " + attributes +
          "/></tt:Parameters></tt:rule>");
  }

  int Read(const std::string& name, int defaultValue) {
    const tests::NodePtr rule(m_profile.SelectRule(""));
    return m_profile.GetSimpleItemValue(name, defaultValue, rule.get(), true);
  }
};

class TheIntegerOfAnItem : public AnIntegerItem, public testing::WithParamInterface<Row> {};

TEST_P(TheIntegerOfAnItem, FollowsTheTable) {
  ParseItem("Value='" + std::string(GetParam().value) + "'");
  EXPECT_EQ(GetParam().expected, Read("a", 5));
}

INSTANTIATE_TEST_SUITE_P(Rows, TheIntegerOfAnItem, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

TEST_F(AnIntegerItem, ThatIsMissingGivesTheDefault) {
  ParseItem("Value='1'");
  EXPECT_EQ(-3, Read("b", -3));
}

TEST_F(AnIntegerItem, WithoutValueGivesTheDefault) {
  ParseItem("");
  EXPECT_EQ(-3, Read("a", -3));
}

TEST_F(AnIntegerItem, WithoutNumberGivesZeroAndNotTheDefault) {
  ParseItem("Value='abc'");
  EXPECT_EQ(0, Read("a", kLargest));
}

TEST_F(AnIntegerItem, GivesAnyDefaultUnchanged) {
  ParseItem("Value=' '");
  EXPECT_EQ(kLargest, Read("a", kLargest));
  EXPECT_EQ(kSmallest, Read("a", kSmallest));
  EXPECT_EQ(0, Read("a", 0));
}

TEST_F(AnIntegerItem, IsReadFromItsParametersWithTheShortPathOnly) {
  ParseItem("Value='80'");
  const tests::NodePtr rule = Node("tt:rule");
  const tests::NodePtr parameters = Node("tt:rule/tt:Parameters");
  EXPECT_EQ(80, m_profile.GetSimpleItemValue("a", 5, rule.get(), true));
  EXPECT_EQ(80, m_profile.GetSimpleItemValue("a", 5, parameters.get(), false));
  EXPECT_EQ(5, m_profile.GetSimpleItemValue("a", 5, rule.get(), false));
  EXPECT_EQ(5, m_profile.GetSimpleItemValue("a", 5, parameters.get(), true));
}

TEST_F(AnIntegerItem, IsReadUnderTheGlobalLocale) {
  ParseItem("Value='1,234'");
  EXPECT_EQ(1, Read("a", 5));
  const GlobalLocale grouped(new GroupedNumbers);
  EXPECT_EQ(1234, Read("a", 5));
}

}  // namespace
}  // namespace analytics
