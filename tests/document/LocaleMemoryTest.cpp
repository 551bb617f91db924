#include <string>

#include <gtest/gtest.h>

#include "tests/document/GlobalLocale.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingAllocation.h"

namespace analytics {
namespace {

/// A stream prepares a locale at its first number and keeps what it prepared.
class ANodeInANewLocaleWithoutMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  /// Runs an operation, with a locale that no number has been written or read in yet.
  template <typename Operation>
  static void InANewLocale(Operation operation) {
    const GlobalLocale grouping(new GroupedNumbers);
    tests::WithEachAllocationFailing(GetParam(), operation);
  }

  ParsedDocument m_document{"<r><a n='1'>text</a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
  const std::string m_number = "n";
};

TEST_P(ANodeInANewLocaleWithoutMemory, WritesNoWrongText) {
  InANewLocale([this] { m_node.SetValue(1234); });
  EXPECT_EQ("1,234", m_node.GetValue());
}

TEST_P(ANodeInANewLocaleWithoutMemory, WritesNoWrongAttribute) {
  InANewLocale([this] { m_node.SetProperty(m_number, 1234); });
  EXPECT_EQ("1,234", m_node.GetProperty("n"));
}

TEST_P(ANodeInANewLocaleWithoutMemory, AddsNoChildOfAWrongText) {
  const std::string name = "b";
  tests::NodePtr child;
  InANewLocale([&] { child.reset(m_node.AddNewChild(name, 1234)); });
  EXPECT_EQ("1,234", child->GetValue());
  EXPECT_EQ(1U, tests::All(m_document, "a/*").size());
}

TEST_P(ANodeInANewLocaleWithoutMemory, ReadsNoWrongNumber) {
  m_node.SetProperty("n", "1,234");
  int number = 0;
  InANewLocale([&] { number = m_node.GetProperty(m_number, 7); });
  EXPECT_EQ(1234, number);
}

INSTANTIATE_TEST_SUITE_P(Shortages, ANodeInANewLocaleWithoutMemory,
                         testing::ValuesIn(tests::kShortages), tests::ShortageName);

}  // namespace
}  // namespace analytics
