#include <gtest/gtest.h>

#include <analytics/ProfileDoc.h>

#include "tests/support/Nodes.h"

namespace analytics {
namespace {

using tests::NodePtr;

TEST(AProfile, SelectsTheFirstRuleForAnEmptyType) {
  ProfileDoc profile;
  ASSERT_TRUE(profile.ParseString("<p xmlns='http://www.onvif.org/ver10/schema'><rule Type='A'/></p>"));
  const NodePtr rule(profile.SelectRule(""));
  ASSERT_TRUE(rule);
  EXPECT_EQ("A", rule->GetProperty("Type"));
}

}  // namespace
}  // namespace analytics
