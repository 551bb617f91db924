#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <tavrel/settings/ResourceReserver.h>

#include <analytics/ResourceUsageServer.h>
#include <analytics/WindowBlankingChanges.h>

#include "host/tavrel-settings/Store.h"
#include "tests/platform/HostPlatform.h"
#include "tests/platform/OverlappingActions.h"
#include "tests/platform/Regions.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::IniFile;
using tests::RecordListener;
using tests::Yuv;

constexpr int kTurns = 40;
constexpr int kCapacity = 8;

/// Counts the turns of one thread.
class Turns {
 public:
  int Next() { return m_turn++; }

 private:
  int m_turn = 0;
};

/// The regions that the store is given in turn, each with the colour that its record has.
const std::map<IniFile::Keys, Yuv>& KnownRegions() {
  static const std::map<IniFile::Keys, Yuv> regions = {{tests::RedRegion(), tests::kRed},
                                                       {tests::GreenRegion(), tests::kGreen},
                                                       {tests::BlueRegion(), tests::kBlue}};
  return regions;
}

const IniFile::Keys& RegionOf(int turn) {
  return std::next(KnownRegions().begin(), turn % static_cast<int>(KnownRegions().size()))->first;
}

void SetRegion(int number, const IniFile::Keys& keys) {
  tavrel::settings::Store().Edit(
      [&](IniFile& store) { tests::SetGroup(store, tests::RegionGroup(number), keys); });
}

void RemoveRegion(int number) {
  tavrel::settings::Store().Edit(
      [&](IniFile& store) { store.RemoveGroup(tests::RegionGroup(number)); });
}

/// The colours of the regions that the store now holds.
std::vector<Yuv> ColoursInTheStore() {
  const IniFile store = tavrel::settings::Store().Read();
  std::vector<Yuv> colours;
  for (const auto& [group, keys] : store.AllGroups())
    if (group.find("/Region#") != std::string::npos) colours.push_back(KnownRegions().at(keys));
  return colours;
}

/// Edits the first region; on a thread of its own.
std::function<void()> ChangingTheFirstRegion() {
  return [turns = Turns()]() mutable { SetRegion(1, RegionOf(turns.Next())); };
}

/// Adds the second region and removes it in turn; on a thread of its own.
std::function<void()> AddingAndRemovingTheSecondRegion() {
  return [turns = Turns()]() mutable {
    const int turn = turns.Next();
    if (turn % 2 == 0)
      SetRegion(2, RegionOf(turn));
    else
      RemoveRegion(2);
  };
}

/// A subscription that comes and goes on a thread of its own.
void ComeAndGo() {
  RecordListener listener;
  const WindowBlankingChanges changes;
  changes.Subscribe(&RecordListener::Hear, &listener);
  EXPECT_THAT(listener.Next(), testing::Not(testing::IsEmpty()));
  changes.Unsubscribe(&RecordListener::Hear, &listener);
}

void StartAndStop() {
  const WindowBlankingChanges changes;
  changes.Start();
  changes.Stop();
}

void Configure() { WindowBlankingChanges().SetConfiguration(tests::OneRegion()); }

/// Claims 1 to 6 of the 8 units for the analytics; on a thread of its own.
std::function<void()> Claiming() {
  return [turns = Turns()]() mutable {
    EXPECT_EQ(1, ResourceUsageServer().ReserveResources(1 + turns.Next() % 6));
  };
}

/// Claims 1 to 6 of the 8 units for another consumer; on a thread of its own.
std::function<void()> ClaimingForAnother() {
  return [turns = Turns()]() mutable {
    tavrel::settings::ResourceReserver(nullptr, "CPU", "Recorder")
        .TrySetUsage(1 + turns.Next() % 6);
  };
}

/// Units that are claimed in the store, of one consumer.
int Claimed(const IniFile& store, const std::string& consumer) {
  return store.GetIntOrDefault("Resources/CPU/" + consumer, "Usage", 0);
}

void CheckClaims() {
  const IniFile store = tavrel::settings::Store().Read();
  EXPECT_LE(Claimed(store, "Analytics") + Claimed(store, "Recorder"), kCapacity);
  const int available = ResourceUsageServer().AvailableResources();
  EXPECT_GE(available, 0);
  EXPECT_LE(available, kCapacity);
}

/// The library used by many threads, while the store changes.
class OverlappingUse : public tests::HostPlatformTest {
 protected:
  OverlappingUse() {
    Store({tests::RedRegion()});
    Set("Resources/CPU", "Capacity", std::to_string(kCapacity));
  }
};

TEST_F(OverlappingUse, TellsALastingSubscriberOfTheLastEdit) {
  tests::InFreshProcess([] {
    RecordListener listener;
    const WindowBlankingChanges& changes = Started(listener);
    tests::RunOverlapping(kTurns, {ChangingTheFirstRegion(), AddingAndRemovingTheSecondRegion(),
                                   &ComeAndGo, &ComeAndGo, Claiming()});
    const std::vector<Yuv> colours = ColoursInTheStore();
    EXPECT_EQ(colours, listener.LastAfterWaitingFor(colours));
    changes.Unsubscribe(&RecordListener::Hear, &listener);
    changes.Stop();
  });
}

// A change that was on its way at a stop may come after the next start and bring back old values,
// until the keys change again: so the last edit changes all keys.
TEST_F(OverlappingUse, TellsOfAnEditAfterManyStartsAndStops) {
  tests::InFreshProcess([] {
    RecordListener listener;
    const WindowBlankingChanges& changes = Started(listener);
    tests::RunOverlapping(kTurns, {ChangingTheFirstRegion(), &StartAndStop, &StartAndStop,
                                   &ComeAndGo, &Configure, Claiming(), &CheckClaims});
    changes.Start();
    SetRegion(1, tests::Region("Wall", 128, 127, 126));
    const std::vector<Yuv> wall = {{125, 127, 129}};
    EXPECT_EQ(wall, listener.LastAfterWaitingFor(wall));
    changes.Unsubscribe(&RecordListener::Hear, &listener);
    changes.Stop();
  });
}

TEST_F(OverlappingUse, NeverClaimsMoreThanTheCapacity) {
  tests::InFreshProcess([] {
    tests::RunOverlapping(kTurns, {Claiming(), Claiming(), ClaimingForAnother(), &CheckClaims,
                                   &CheckClaims, ChangingTheFirstRegion()});
    CheckClaims();
    const IniFile store = tavrel::settings::Store().Read();
    const int analytics = Claimed(store, "Analytics");
    const int recorder = Claimed(store, "Recorder");
    EXPECT_GE(analytics, 1);  // a claim of one unit always fits
    EXPECT_GE(recorder, 1);
    EXPECT_EQ(kCapacity - analytics - recorder, ResourceUsageServer().AvailableResources());
  });
}

}  // namespace
}  // namespace analytics
