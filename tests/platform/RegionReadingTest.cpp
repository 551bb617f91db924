#include <string>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::Calls;
using tests::IniFile;
using tests::RegionGroup;

Calls Then(Calls first, const Calls& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Calls SwitchRead() { return {"IniFile::GetBoolOrDefault(Imaging/WindowBlanking,Enabled,false)"}; }

Calls GroupAskedFor(int number) { return {"IniFile::HasGroup(" + RegionGroup(number) + ")"}; }

Calls NameRead(int number) { return {"IniFile::TryGetValue(" + RegionGroup(number) + ",Name)"}; }

Calls ColoursRead(int number) {
  const std::string start = "IniFile::GetIntOrDefault(" + RegionGroup(number) + ",Color";
  return {start + "R,0)", start + "G,0)", start + "B,0)", start + "A,255)"};
}

/// The counting of `groups` groups in a row.
Calls Counting(int groups) {
  Calls calls = SwitchRead();
  for (int number = 1; number <= groups; ++number) {
    calls = Then(Then(calls, GroupAskedFor(number)), NameRead(number));
  }
  return groups < 32 ? Then(calls, GroupAskedFor(groups + 1)) : calls;
}

/// What is read of the settings when they come by a change.
Calls ReadOf(const IniFile& settings) {
  fakes::CallLog::Instance().Clear();
  tests::Change(settings);
  Calls calls = fakes::CallLog::Instance().CallsOf("IniFile::");
  EXPECT_EQ("IniFile::MergeSettings(changes)", calls.front());
  calls.erase(calls.begin());
  return calls;
}

TEST(ARefresh, CountsWithHasGroupAndThenReadsNamesAndColoursWithoutIt) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    const Calls expected = Then(Then(Counting(3), SwitchRead()),
                                Then(Then(Then(NameRead(1), ColoursRead(1)), NameRead(2)),
                                     Then(NameRead(3), ColoursRead(3))));
    EXPECT_EQ(
        expected,
        ReadOf(tests::SwitchedOn({tests::RedRegion(), tests::EmptyRegion(), tests::BlueRegion()})));
  });
}

TEST(ARefresh, ReadsOnlyTheSwitchWhereThatIsOffFromTheStart) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    EXPECT_EQ(SwitchRead(), ReadOf(tests::Switched(false)));
  });
}

TEST(ARefresh, ReadsNoColourWhereThereIsNoGroup) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    EXPECT_EQ(Counting(0), ReadOf(tests::Switched(true)));
  });
}

TEST(ARefresh, LooksAtAllGroupsUpTo32) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    Calls expected = Then(Counting(32), SwitchRead());
    for (int number = 1; number <= 32; ++number) expected = Then(expected, NameRead(number));
    EXPECT_EQ(expected,
              ReadOf(tests::SwitchedOn(std::vector<IniFile::Keys>(33, tests::EmptyRegion()))));
  });
}

TEST(ARefresh, ReadsTheColoursOf32ActiveRegionsThoughItIgnoresThem) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    Calls expected = Then(Counting(32), SwitchRead());
    for (int number = 1; number <= 32; ++number) {
      expected = Then(Then(expected, NameRead(number)), ColoursRead(number));
    }
    EXPECT_EQ(expected, ReadOf(tests::SwitchedOn(tests::ManyRegions(32))));
  });
}

TEST(ARefresh, KeepsTheGroupCountWhileSwitchedOffAndSoReadsTheSwitchTwice) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()}));
    const Calls twice = Then(SwitchRead(), SwitchRead());
    EXPECT_EQ(twice, ReadOf(tests::Switched(false)));
    EXPECT_EQ(twice, ReadOf(tests::Switched(false)));
  });
}

TEST(ARefresh, ForgetsTheGroupCountOnceItCountsNone) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    IniFile removal;
    removal.RemoveGroup(RegionGroup(1));
    EXPECT_EQ(Counting(0), ReadOf(removal));
    EXPECT_EQ(SwitchRead(), ReadOf(tests::Switched(false)));
  });
}

}  // namespace
}  // namespace analytics
