#include "tests/profile/ProfileTest.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::NodePtr;
using tests::WithEachAllocationFailing;

/// Operations of a profile that make and load the settings, short of memory all the while.
using AFirstUseWithoutMemory = tests::ProfileTest;

TEST_F(AFirstUseWithoutMemory, ByAParseCanBeRepeated) {
  const std::string text = tests::ProfileText("<tt:rule/>");
  tests::InFreshProcess([&] {
    bool parsed = false;
    WithEachAllocationFailing([&] { parsed = m_profile.ParseString(text); });
    EXPECT_TRUE(parsed);
    EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
  });
}

TEST_F(AFirstUseWithoutMemory, ByAQueryTextCanBeRepeated) {
  tests::InFreshProcess([] {
    std::string query;
    WithEachAllocationFailing([&] { query = ProfileDoc::SimpleItemQry(true); });
    EXPECT_EQ("tt:Parameters/tt:SimpleItem", query);
  });
}

TEST_F(AFirstUseWithoutMemory, ByASelectionCanBeRepeated) {
  tests::InFreshProcess([this] {
    WithEachAllocationFailing([&] { EXPECT_EQ(nullptr, m_profile.SelectRule("")); });
    Parse("<tt:rule/>");
    EXPECT_TRUE(NodePtr(m_profile.SelectRule("")));
  });
}

}  // namespace
}  // namespace analytics
