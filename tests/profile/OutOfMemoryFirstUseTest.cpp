#include "tests/profile/ProfileTest.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::NodePtr;
using tests::WithEachAllocationFailing;

/// Operations of a profile that make and load the settings, short of memory all the while.
class AFirstUseWithoutMemory : public tests::ProfileTest,
                               public testing::WithParamInterface<tests::Shortage> {};

TEST_P(AFirstUseWithoutMemory, ByAParseCanBeRepeated) {
  const std::string text = tests::ProfileText("<tt:rule/>");
  tests::InFreshProcess([&] {
    bool parsed = false;
    WithEachAllocationFailing(GetParam(), [&] { parsed = m_profile.ParseString(text); });
    EXPECT_TRUE(parsed);
    EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
  });
}

TEST_P(AFirstUseWithoutMemory, ByAQueryTextCanBeRepeated) {
  tests::InFreshProcess([] {
    std::string query;
    WithEachAllocationFailing(GetParam(), [&] { query = ProfileDoc::SimpleItemQry(true); });
    EXPECT_EQ("tt:Parameters/tt:SimpleItem", query);
  });
}

TEST_P(AFirstUseWithoutMemory, ByASelectionCanBeRepeated) {
  tests::InFreshProcess([this] {
    WithEachAllocationFailing(GetParam(), [&] { EXPECT_EQ(nullptr, m_profile.SelectRule("")); });
    Parse("<tt:rule/>");
    EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
  });
}

INSTANTIATE_TEST_SUITE_P(Shortages, AFirstUseWithoutMemory, testing::ValuesIn(tests::kShortages),
                         tests::ShortageName);

}  // namespace
}  // namespace analytics
