#include <array>

#include <gtest/gtest.h>

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/MemoryInUse.h"

namespace tests {
namespace {

constexpr int kChanges = 1000000;

TEST(AMillionChanges, ReachSixteenSubscribersInTheMemoryOfThousand) {
  const std::array<IniFile, 2> changes = {
      Settings({{RegionGroup(1), GreenRegion()}, {RegionGroup(2), EmptyRegion()}}),
      Settings({{RegionGroup(1), EmptyRegion()}, {RegionGroup(2), BlueRegion()}})};
  const analytics::WindowBlankingChanges& blanking =
      Started(SwitchedOn({RedRegion(), RedRegion()}));
  std::array<Listener, 16> listeners;
  for (Listener& listener : listeners) blanking.Subscribe(&Listener::Hear, &listener);
  for (Listener& listener : listeners) listener = Listener();
  ExpectNoGrowth(kChanges, [&changes](int round) {
    Change(changes[static_cast<std::size_t>(round % 2)]);
    fakes::CallLog::Instance().Clear();
  });
  for (const Listener& listener : listeners) {
    EXPECT_EQ(kChanges, listener.calls);
    EXPECT_EQ(1U, listener.record.count);
    EXPECT_EQ(kBlue, AllEntries(listener.record)[0]);
    blanking.Unsubscribe(&Listener::Hear, const_cast<Listener*>(&listener));
  }
}

}  // namespace
}  // namespace tests
