#include <string>

#include <gtest/gtest.h>

#include "document/TypedText.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  int number;
  const char* expected;
};

const Row kRows[] = {
    {"Zero", 0, "0"},
    {"OneDigit", 7, "7"},
    {"Negative", -42, "-42"},
    {"Thousands", 1234567, "1234567"},
    {"Greatest", 2147483647, "2147483647"},
    {"Least", -2147483647 - 1, "-2147483648"},
};

class AWrittenInteger : public testing::TestWithParam<Row> {
 protected:
  ParsedDocument m_document{"<a><b>former<c/></b></a>"};
  DocumentNode m_node = NodeAt(m_document, "b");
};

TEST_P(AWrittenInteger, IsPlainDecimal) {
  EXPECT_EQ(GetParam().expected, TextFromNumber(GetParam().number));
}

TEST_P(AWrittenInteger, BecomesTheTextOfANode) {
  m_node.SetValue(GetParam().number);
  EXPECT_EQ("<b>" + std::string(GetParam().expected) + "</b>", m_node.DumpToString());
  EXPECT_EQ(GetParam().number, m_node.GetValue(3));
}

TEST_P(AWrittenInteger, BecomesAnAttribute) {
  m_node.SetProperty("n", GetParam().number);
  EXPECT_EQ(GetParam().expected, m_node.GetProperty("n"));
  EXPECT_EQ(GetParam().number, m_node.GetProperty("n", 3));
}

TEST_P(AWrittenInteger, BecomesTheTextOfANewChild) {
  const tests::NodePtr child(m_node.AddNewChild("n", GetParam().number));
  ASSERT_TRUE(child);
  EXPECT_EQ("<n>" + std::string(GetParam().expected) + "</n>", child->DumpToString());
}

INSTANTIATE_TEST_SUITE_P(Rows, AWrittenInteger, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
