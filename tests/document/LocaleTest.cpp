#include <locale>
#include <string>

#include <gtest/gtest.h>

#include "tests/document/GlobalLocale.h"
#include "tests/document/NumberReaders.h"

namespace analytics {
namespace {

class ALocaleThatGroupsDigits : public testing::Test {
 protected:
  ParsedDocument m_document{"<a/>"};
  DocumentNode m_root = NodeAt(m_document, "/a");
  const GlobalLocale m_grouping{new GroupedNumbers};
};

TEST_F(ALocaleThatGroupsDigits, LeavesWrittenTextPlain) {
  m_root.SetValue(1234);
  EXPECT_EQ("1234", m_root.GetValue());
}

TEST_F(ALocaleThatGroupsDigits, LeavesAWrittenAttributePlain) {
  m_root.SetProperty("n", -1234567);
  EXPECT_EQ("-1234567", m_root.GetProperty("n"));
}

TEST_F(ALocaleThatGroupsDigits, LeavesTheTextOfANewChildPlain) {
  const tests::NodePtr child(m_root.AddNewChild("n", -2147483647 - 1));
  EXPECT_EQ("-2147483648", child->GetValue());
}

TEST_F(ALocaleThatGroupsDigits, ReadsBackWhatWasWritten) {
  m_root.SetValue(2147483647);
  EXPECT_EQ(2147483647, m_root.GetValue(7));
}

class AnIntegerReaderUnderALocale : public testing::TestWithParam<NumberReader<int>> {};

TEST_P(AnIntegerReaderUnderALocale, AcceptsTheGroupsOfTheGlobalLocale) {
  const GlobalLocale grouping(new GroupedNumbers);
  EXPECT_EQ(1234, GetParam().read("1,234", 7));
  EXPECT_EQ(1234, GetParam().read("1234", 7));
  EXPECT_EQ(-1234567, GetParam().read("-1,234,567 px", 7));
}

TEST_P(AnIntegerReaderUnderALocale, TakesTheNumberEvenOfMisplacedGroups) {
  const GlobalLocale grouping(new GroupedNumbers);
  EXPECT_EQ(1234, GetParam().read("12,34", 7));
}

TEST_P(AnIntegerReaderUnderALocale, TakesTheFormerLocaleWhenItIsBack) {
  { const GlobalLocale grouping(new GroupedNumbers); }
  EXPECT_EQ(1, GetParam().read("1,234", 7));
}

INSTANTIATE_TEST_SUITE_P(UnderALocale, AnIntegerReaderUnderALocale, testing::ValuesIn(kIntReaders),
                         [](const auto& reader) { return reader.param.name; });

class AFloatingReaderUnderALocale : public testing::TestWithParam<NumberReader<double>> {};

TEST_P(AFloatingReaderUnderALocale, AcceptsTheGroupsOfTheGlobalLocale) {
  const GlobalLocale grouping(new GroupedNumbers);
  EXPECT_EQ(1234.5, GetParam().read("1,234.5", 7));
}

TEST_P(AFloatingReaderUnderALocale, AcceptsTheDecimalPointOfTheGlobalLocale) {
  const GlobalLocale comma(new CommaNumbers);
  EXPECT_EQ(3.5, GetParam().read("3,5", 7));
  EXPECT_EQ(3.0, GetParam().read("3.5", 7));
}

INSTANTIATE_TEST_SUITE_P(OfDoubles, AFloatingReaderUnderALocale, testing::ValuesIn(kDoubleReaders),
                         [](const auto& reader) { return reader.param.name; });

INSTANTIATE_TEST_SUITE_P(OfFloats, AFloatingReaderUnderALocale, testing::ValuesIn(kFloatReaders),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace analytics
