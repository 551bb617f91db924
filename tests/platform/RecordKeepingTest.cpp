#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::AllEntries;
using tests::ColoursOf;
using tests::IniFile;
using tests::kBlue;
using tests::kGreen;
using tests::kNothing;
using tests::kRed;
using tests::ListenerAfter;
using tests::Switched;
using tests::Yuv;

/// The first four entries of a record, whatever its count.
std::vector<Yuv> FirstEntries(const tagWindowBlankingRegions& record) {
  std::vector<Yuv> entries = AllEntries(record);
  entries.resize(4);
  return entries;
}

/// A change that removes the groups of the first regions.
IniFile RemovalOf(int regions) {
  IniFile removal;
  for (int number = 1; number <= regions; ++number) removal.RemoveGroup(tests::RegionGroup(number));
  return removal;
}

void StartWithThreeRegions() {
  tests::Started(
      tests::SwitchedOn({tests::RedRegion(), tests::GreenRegion(), tests::BlueRegion()}));
}

TEST(ARecordOfThree, HasCountZeroAndItsOldEntriesOnceSwitchedOff) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    const tagWindowBlankingRegions record = ListenerAfter(Switched(false)).record;
    EXPECT_EQ(0U, record.count);
    EXPECT_THAT(FirstEntries(record), ElementsAre(kRed, kGreen, kBlue, kNothing));
  });
}

TEST(ARecordOfThree, StaysClearedWhileSwitchedOff) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    ListenerAfter(Switched(false));
    EXPECT_EQ(0U, ListenerAfter(RemovalOf(3)).record.count);
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST(ARecordOfThree, IsBackOnceSwitchedOnAgain) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    ListenerAfter(Switched(false));
    EXPECT_THAT(ColoursOf(ListenerAfter(Switched(true)).record), ElementsAre(kRed, kGreen, kBlue));
  });
}

TEST(ARecordOfThree, KeepsStaleEntriesBehindACountThatHasShrunk) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    const IniFile change = tests::Settings({{tests::RegionGroup(1), tests::EmptyRegion()},
                                            {tests::RegionGroup(2), tests::EmptyRegion()}});
    const tagWindowBlankingRegions record = ListenerAfter(change).record;
    EXPECT_THAT(ColoursOf(record), ElementsAre(kBlue));
    EXPECT_THAT(FirstEntries(record), ElementsAre(kBlue, kGreen, kBlue, kNothing));
  });
}

TEST(ARecordOfThree, HasCountZeroOnceAllRegionsAreEmpty) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    const IniFile change = tests::Settings({{tests::RegionGroup(1), tests::EmptyRegion()},
                                            {tests::RegionGroup(2), tests::EmptyRegion()},
                                            {tests::RegionGroup(3), tests::EmptyRegion()}});
    const tagWindowBlankingRegions record = ListenerAfter(change).record;
    EXPECT_THAT(ColoursOf(record), IsEmpty());
    EXPECT_THAT(FirstEntries(record), ElementsAre(kRed, kGreen, kBlue, kNothing));
  });
}

TEST(ARecordOfThree, StaysWhereAllGroupsAreRemovedThoughSwitchedOn) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    const tests::Listener listener = ListenerAfter(RemovalOf(3));
    EXPECT_EQ(1, listener.calls);
    EXPECT_THAT(ColoursOf(listener.record), ElementsAre(kRed, kGreen, kBlue));
  });
}

TEST(ARecordOfThree, StaysWhereTheFirstGroupIsRemoved) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    EXPECT_THAT(ColoursOf(ListenerAfter(RemovalOf(1)).record), ElementsAre(kRed, kGreen, kBlue));
  });
}

TEST(ARecordOfThree, StaysWhenSwitchedOffAfterAllGroupsWereRemoved) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    ListenerAfter(RemovalOf(3));
    EXPECT_THAT(ColoursOf(ListenerAfter(Switched(false)).record), ElementsAre(kRed, kGreen, kBlue));
  });
}

TEST(ARecordOfThree, ShrinksWithTheListWhereItsLastGroupIsRemoved) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    IniFile removal;
    removal.RemoveGroup(tests::RegionGroup(3));
    EXPECT_THAT(ColoursOf(ListenerAfter(removal).record), ElementsAre(kRed, kGreen));
  });
}

TEST(ARecordOfThree, LeavesOutARegionWhoseNameIsRemoved) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    IniFile removal;
    removal.RemoveKey(tests::RegionGroup(2), "Name");
    EXPECT_THAT(ColoursOf(ListenerAfter(removal).record), ElementsAre(kRed, kBlue));
  });
}

TEST(ARecordOfThree, TakesOnAChangedColour) {
  tests::InFreshProcess([] {
    StartWithThreeRegions();
    const IniFile change =
        tests::Settings({{tests::RegionGroup(2), {{"ColorR", "255"}, {"ColorG", "0"}}}});
    EXPECT_THAT(ColoursOf(ListenerAfter(change).record), ElementsAre(kRed, kRed, kBlue));
  });
}

TEST(ARecordNeverFilled, IsZeroThroughout) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    const tagWindowBlankingRegions record = ListenerAfter(IniFile()).record;
    EXPECT_EQ(0U, record.count);
    EXPECT_EQ(std::vector<Yuv>(32, kNothing), AllEntries(record));
  });
}

}  // namespace
}  // namespace analytics
