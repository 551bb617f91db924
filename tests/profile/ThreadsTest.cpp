#include <thread>

#include <libxml/parser.h>

#include <analytics/Settings.h>

#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

/// Opens, queries and edits profiles of its own; gives the sum of what it read.
int Work() {
  int sum = 0;
  for (int round = 0; round < 100; ++round) {
    ProfileDoc profile;
    EXPECT_TRUE(profile.ParseString(
        tests::ProfileText("<tt:rule Type='A'><tt:Parameters/></tt:rule><tt:rule Type='B'/>")));
    const tests::NodePtr parameters = tests::First(profile, "//tt:Parameters");
    EXPECT_TRUE(profile.SetOrAddSimpleItemValue("a", round, parameters.get()));
    sum += profile.GetSimpleItemValue("a", 0, parameters.get(), false) + profile.DeleteRules("B");
  }
  return sum;
}

TEST(DifferentProfiles, AreUsedByDifferentThreadsOnceTheSettingsAreThere) {
  xmlInitParser();  // libxml2 takes the thread it meets first for the main one
  EXPECT_EQ("tt", Settings::OnvifPrefix());
  int sums[] = {0, 0};
  std::thread first([&sums] { sums[0] = Work(); });
  std::thread second([&sums] { sums[1] = Work(); });
  first.join();
  second.join();
  EXPECT_EQ(4950 + 100, sums[0]);
  EXPECT_EQ(4950 + 100, sums[1]);
}

}  // namespace
}  // namespace analytics
