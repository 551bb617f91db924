#include <stdexcept>

#include <gmock/gmock.h>

#include <analytics/ResourceUsageServer.h>

#include "tests/host/tavrel/StoreTest.h"

namespace analytics {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

class AClaimOnTheHostPlatform : public tests::StoreTest {};

TEST_F(AClaimOnTheHostPlatform, ReplacesThePreviousOne) {
  Set("Resources/CPU", "Capacity", "8");
  EXPECT_EQ(1, ResourceUsageServer().ReserveResources(5));
  EXPECT_EQ(1, ResourceUsageServer().ReserveResources(2));
  EXPECT_EQ(6, ResourceUsageServer().AvailableResources());
}

TEST_F(AClaimOnTheHostPlatform, GivesOneAndKeepsThePreviousOneWhereItIsRefused) {
  Set("Resources/CPU", "Capacity", "8");
  EXPECT_EQ(1, ResourceUsageServer().ReserveResources(5));
  EXPECT_EQ(1, ResourceUsageServer().ReserveResources(9));
  EXPECT_EQ(3, ResourceUsageServer().AvailableResources());
}

TEST_F(AClaimOnTheHostPlatform, LetsTheErrorOfABadCapacityOut) {
  Write("[Resources/CPU]\nCapacity=all\n");
  const auto isReported = ThrowsMessage<std::runtime_error>(HasSubstr("store.ini:2: "));
  EXPECT_THAT([] { ResourceUsageServer().ReserveResources(1); }, isReported);
  EXPECT_THAT([] { ResourceUsageServer().AvailableResources(); }, isReported);
}

}  // namespace
}  // namespace analytics
