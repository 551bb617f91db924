#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::IniFile;
using tests::kGreen;
using tests::kRed;
using tests::Switched;
using tests::SwitchedOn;
using tests::Yuv;

/// A change that removes these regions.
IniFile Removed(const std::vector<int>& regions) {
  IniFile change;
  for (const int number : regions) change.RemoveGroup(tests::RegionGroup(number));
  return change;
}

IniFile SwitchedOffAndRemoved(const std::vector<int>& regions) {
  IniFile change = Removed(regions);
  change.SetValue(tests::kMainGroup, "Enabled", "false");
  return change;
}

IniFile WithoutTheSwitch() {
  IniFile change;
  change.RemoveKey(tests::kMainGroup, "Enabled");
  return change;
}

/// Changes after a start with a red and a green region, and the record after the last of them.
struct Row {
  std::string name;
  std::vector<IniFile> changes;
  std::vector<Yuv> record;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

std::vector<Row> Rows() {
  return {
      {"OnWithOneRegion", {Removed({2})}, {kRed}},
      {"OnWithAllRegionsEmpty", {SwitchedOn({tests::EmptyRegion(), tests::EmptyRegion()})}, {}},
      {"OnWithAnotherColour", {SwitchedOn({tests::BlueRegion()})}, {tests::kBlue, kGreen}},
      {"OnWithAll32RegionsActive", {SwitchedOn(tests::ManyRegions(32))}, {kRed, kGreen}},
      {"OnWithoutTheFirstRegion", {Removed({1})}, {kRed, kGreen}},
      {"OnWithoutAnyRegion", {Removed({1, 2})}, {kRed, kGreen}},
      {"Off", {Switched(false)}, {}},
      {"OffWithoutTheSwitch", {WithoutTheSwitch()}, {}},
      {"OffAfterAll32WereActive", {SwitchedOn(tests::ManyRegions(32)), Switched(false)}, {}},
      {"OffAndTheRegionsRemovedAtOnce", {SwitchedOffAndRemoved({1, 2})}, {}},
      {"OffAndThenTheRegionsRemoved", {Switched(false), Removed({1, 2})}, {}},
      {"OffAfterTheFirstRegionWasRemoved", {Removed({1}), Switched(false)}, {kRed, kGreen}},
      {"OffAfterAllRegionsWereRemoved", {Removed({1, 2}), Switched(false)}, {kRed, kGreen}},
  };
}

class ASettingsState : public testing::TestWithParam<Row> {
 protected:
  /// What a subscriber is told of the last of the row's changes.
  static tests::Listener AfterAllChanges() {
    tests::Started(SwitchedOn({tests::RedRegion(), tests::GreenRegion()}));
    tests::Listener listener;
    for (const IniFile& change : GetParam().changes) listener = tests::ListenerAfter(change);
    return listener;
  }
};

TEST_P(ASettingsState, GivesSubscribersTheRecordOfTheTable) {
  tests::InFreshProcess([] {
    const tests::Listener listener = AfterAllChanges();
    EXPECT_EQ(1, listener.calls);
    EXPECT_EQ(GetParam().record, tests::ColoursOf(listener.record));
  });
}

TEST_P(ASettingsState, GivesNewSubscribersTheRecordOfTheTable) {
  tests::InFreshProcess([] {
    AfterAllChanges();
    const tests::Listener listener = tests::NewListener();
    EXPECT_EQ(GetParam().record.empty() ? 0 : 1, listener.calls);
    EXPECT_EQ(GetParam().record, tests::ColoursOf(listener.record));
  });
}

INSTANTIATE_TEST_SUITE_P(Rows, ASettingsState, testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
