#include <climits>
#include <cstdint>
#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/document/GlobalLocale.h"
#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

using tests::ElementOf;
using tests::LoadContent;
using tests::LoadText;

/// Stands in the table for the answer that belongs to a missing number.
constexpr std::int64_t kFallback = INT64_MIN;

struct Row {
  const char* name;
  const char* text;
  std::int64_t expected;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"Number", "2500", 2500},
    {"Zero", "0", 0},
    {"Negative", "-5", -5},
    {"PlusSign", "+7", 7},
    {"LeadingZeros", "0012", 12},
    {"LeadingWhiteSpace", " \t\n12", 12},
    {"TrailingText", "12px", 12},
    {"TrailingBlank", "12 13", 12},
    {"Fraction", "3.7", 3},
    {"Exponent", "1e3", 1},
    {"Hexadecimal", "0x1F", 0},
    {"Grouping", "1,000", 1},
    {"Empty", "", kFallback},
    {"Blank", " \t\n", kFallback},
    {"NoNumber", "abc", 0},
    {"SignAlone", "-", 0},
    {"BlankAfterSign", "- 5", 0},
    {"TwoSigns", "--5", 0},
    {"LargestInt", "2147483647", INT_MAX},
    {"OneAboveInt", "2147483648", INT_MAX},
    {"LowBitsOfALargerNumber", "4294967301", INT_MAX},
    {"FarAboveInt", "99999999999999999999999", INT_MAX},
    {"SmallestInt", "-2147483648", INT_MIN},
    {"OneBelowInt", "-2147483649", INT_MIN},
    {"FarBelowInt", "-99999999999999999999999", INT_MIN},
};

class ANumberText : public testing::TestWithParam<Row> {
 protected:
  static std::int64_t Expected(std::int64_t fallback) {
    return GetParam().expected == kFallback ? fallback : GetParam().expected;
  }
};

TEST_P(ANumberText, IsConvertedForTheResource) {
  ASSERT_TRUE(LoadContent(ElementOf("maxResource", GetParam().text)));
  EXPECT_EQ(Expected(100000), Settings::MaxResource());
}

TEST_P(ANumberText, IsConvertedForAQuery) {
  ASSERT_TRUE(LoadContent(ElementOf("anything", GetParam().text)));
  EXPECT_EQ(Expected(7), Settings::GetValue("//anything", 7));
}

INSTANTIATE_TEST_SUITE_P(Rows, ANumberText, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

TEST(TheResource, FallsBackForAFileThatHoldsOnlyARootElement) {
  ASSERT_TRUE(LoadContent("<maxResource>50</maxResource>"));
  ASSERT_TRUE(LoadText("<settings/>"));
  EXPECT_EQ(100000, Settings::MaxResource());
}

TEST(TheResource, IsFoundAtAnyDepthUnderAnyRootElement) {
  ASSERT_TRUE(LoadText("<a><b/><c><d><maxResource>50</maxResource></d></c></a>"));
  EXPECT_EQ(50, Settings::MaxResource());
}

TEST(TheResource, IsFoundAsTheRootElementItself) {
  ASSERT_TRUE(LoadText("<maxResource>50</maxResource>"));
  EXPECT_EQ(50, Settings::MaxResource());
}

TEST(TheResource, IsTheFirstOfTwoInDocumentOrder) {
  ASSERT_TRUE(LoadContent("<a><maxResource>50</maxResource></a><maxResource>60</maxResource>"));
  EXPECT_EQ(50, Settings::MaxResource());
}

TEST(TheResource, FallsBackIfTheFirstOfTwoIsEmpty) {
  ASSERT_TRUE(LoadContent("<maxResource/><maxResource>60</maxResource>"));
  EXPECT_EQ(100000, Settings::MaxResource());
}

TEST(TheResource, IsNotFoundInANamespace) {
  ASSERT_TRUE(LoadText("<a xmlns='urn:example'><maxResource>50</maxResource></a>"));
  EXPECT_EQ(100000, Settings::MaxResource());
  ASSERT_TRUE(LoadText("<a xmlns:n='urn:example'><n:maxResource>50</n:maxResource></a>"));
  EXPECT_EQ(100000, Settings::MaxResource());
}

TEST(TheResource, IsNotReadFromAttributes) {
  ASSERT_TRUE(LoadText("<a maxResource='40'><maxResource value='50'/></a>"));
  EXPECT_EQ(100000, Settings::MaxResource());
}

TEST(TheResource, IsReadUnderTheGlobalLocale) {
  ASSERT_TRUE(LoadContent("<maxResource>80,000</maxResource>"));
  EXPECT_EQ(80, Settings::MaxResource());
  const GlobalLocale grouped(new GroupedNumbers);
  ASSERT_TRUE(LoadContent("<maxResource>80,000</maxResource>"));
  EXPECT_EQ(80000, Settings::MaxResource());
}

TEST(TheNumberOfSessions, IsReadByAQueryWhoseDefaultIsTheCallers) {
  ASSERT_TRUE(LoadText("<settings/>"));
  EXPECT_EQ(7, Settings::GetValue("//maxSessions", 7));
  ASSERT_TRUE(LoadContent("<maxSessions>4</maxSessions>"));
  EXPECT_EQ(4, Settings::GetValue("//maxSessions", 7));
}

TEST(TheVideoInputFile, IsReadByAQuery) {
  ASSERT_TRUE(LoadContent("<videoInputFile>/tmp/input.yuv</videoInputFile>"));
  EXPECT_EQ("/tmp/input.yuv", Settings::GetValue("//videoInputFile"));
}

}  // namespace
}  // namespace analytics
