#include <string>

#include <gtest/gtest.h>

#include <analytics/ProfileDoc.h>

#include "tests/profile/ProfileTest.h"
#include "tests/support/MemoryInUse.h"

namespace tests {
namespace {

std::string RuleText(int number) {
  return "<tt:rule Type='Line" + std::to_string(number % 7) +
         "'><tt:Parameters><tt:SimpleItem Name='Active' Value='1'/>"
         "<tt:SimpleItem Name='Level' Value='" +
         std::to_string(number) + "'/></tt:Parameters></tt:rule>";
}

TEST(AMillionDocuments, AreParsedAskedAndClosedInTheMemoryOfThousand) {
  analytics::ProfileDoc profile;
  ExpectNoGrowth(1000000, [&profile](int round) {
    ASSERT_TRUE(profile.ParseString(ProfileText(RuleText(round))));
    ASSERT_EQ(1U, profile.ActiveRules().size());
    ASSERT_EQ(round,
              profile.GetSimpleItemValue("Level", -1, First(profile, "//tt:rule").get(), true));
    profile.Close();
  });
}

TEST(AMillionDocuments, AreMadeEditedAndDestroyedInTheMemoryOfThousand) {
  ExpectNoGrowth(1000000, [](int round) {
    analytics::ProfileDoc profile;
    ASSERT_TRUE(profile.ParseString(ProfileText(RuleText(round) + RuleText(round + 1))));
    ASSERT_TRUE(profile.SetSimpleItemValue("Level", -round, First(profile, "//tt:rule").get()));
    ASSERT_EQ(1, profile.DeleteRules("Line" + std::to_string((round + 1) % 7)));
    ASSERT_FALSE(profile.DumpToString().empty());
  });
}

}  // namespace
}  // namespace tests
