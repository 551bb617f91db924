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
  /// Runs an operation, with a locale that no number has been read in yet.
  template <typename Operation>
  static void InANewLocale(Operation operation) {
    const GlobalLocale grouping(new GroupedNumbers);
    tests::WithEachAllocationFailing(GetParam(), operation);
  }

  ParsedDocument m_document{"<r><a n='1'>text</a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
  const std::string m_number = "n";
};

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
