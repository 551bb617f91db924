#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/HostPlatform.h"
#include "tests/platform/Regions.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::IniFile;
using tests::kBlue;
using tests::kGreen;
using tests::kRed;
using tests::Yuv;

constexpr Yuv kBlack = {16, 128, 128};

/// What one edit of a store with a red, a green and a blue region makes of the record.
struct EditRow {
  std::string name;
  std::function<void(IniFile&)> edit;
  std::vector<Yuv> record;
};

std::string NameOf(const testing::TestParamInfo<EditRow>& row) { return row.param.name; }

void PrintTo(const EditRow& row, std::ostream* out) { *out << row.name; }

class AnEditOfTheStore : public tests::HostPlatformTest,
                         public testing::WithParamInterface<EditRow> {};

TEST_P(AnEditOfTheStore, ReachesTheSubscriber) {
  Store({tests::RedRegion(), tests::GreenRegion(), tests::BlueRegion()});
  tests::InFreshProcess([] {
    tests::RecordListener listener;
    const WindowBlankingChanges& changes = Started(listener);
    EXPECT_THAT(listener.Next(), testing::ElementsAre(kRed, kGreen, kBlue));
    Edit(GetParam().edit);
    EXPECT_EQ(GetParam().record, listener.Next());
    changes.Unsubscribe(&tests::RecordListener::Hear, &listener);
  });
}

void RemoveRegions(IniFile& settings, const std::vector<int>& numbers) {
  for (const int number : numbers) settings.RemoveGroup(tests::RegionGroup(number));
}

INSTANTIATE_TEST_SUITE_P(
    Removing, AnEditOfTheStore,
    testing::Values(
        EditRow{"TheLastRegion", [](IniFile& store) { RemoveRegions(store, {3}); }, {kRed, kGreen}},
        EditRow{"TheSecondRegionEndsTheList",
                [](IniFile& store) { RemoveRegions(store, {2}); },
                {kRed}},
        EditRow{"TheFirstRegionKeepsTheRecord",
                [](IniFile& store) { RemoveRegions(store, {1}); },
                {kRed, kGreen, kBlue}},
        EditRow{"AllRegionsKeepsTheRecord",
                [](IniFile& store) {
                  RemoveRegions(store, {1, 2, 3});
                },
                {kRed, kGreen, kBlue}},
        EditRow{"AName",
                [](IniFile& store) { store.RemoveKey(tests::RegionGroup(2), "Name"); },
                {kRed, kBlue}},
        EditRow{"AColour",
                [](IniFile& store) { store.RemoveKey(tests::RegionGroup(1), "ColorR"); },
                {kBlack, kGreen, kBlue}},
        EditRow{"TheMainSwitch",
                [](IniFile& store) { store.RemoveKey(tests::kMainGroup, "Enabled"); },
                {}},
        EditRow{"TheMainGroup", [](IniFile& store) { store.RemoveGroup(tests::kMainGroup); }, {}}),
    &NameOf);

/// Sets a key of the second region.
std::function<void(IniFile&)> SecondRegionWith(const std::string& key, const std::string& value) {
  return [=](IniFile& store) { store.SetValue(tests::RegionGroup(2), key, value); };
}

INSTANTIATE_TEST_SUITE_P(
    Setting, AnEditOfTheStore,
    testing::Values(
        EditRow{"ANameToEmpty", SecondRegionWith("Name", "Empty"), {kRed, kBlue}},
        EditRow{
            "ANameToEmptyInLowerCase", SecondRegionWith("Name", "empty"), {kRed, kGreen, kBlue}},
        EditRow{"AColour", SecondRegionWith("ColorB", "511"), {kRed, {169, 166, 16}, kBlue}},
        EditRow{"TheMainSwitchOff",
                [](IniFile& store) { store.SetValue(tests::kMainGroup, "Enabled", "false"); },
                {}},
        EditRow{
            "All32RegionsActiveKeepsTheRecord",
            [](IniFile& store) { store.MergeSettings(tests::SwitchedOn(tests::ManyRegions(32))); },
            {kRed, kGreen, kBlue}}),
    &NameOf);

class TheRegionsOfTheStore : public tests::HostPlatformTest {};

TEST_F(TheRegionsOfTheStore, MayBe31) {
  Store({tests::RedRegion()});
  tests::InFreshProcess([] {
    tests::RecordListener listener;
    const WindowBlankingChanges& changes = Started(listener);
    EXPECT_THAT(listener.Next(), testing::ElementsAre(kRed));
    Store(tests::ManyRegions(31));
    EXPECT_THAT(listener.Next(), testing::SizeIs(31));
    changes.Unsubscribe(&tests::RecordListener::Hear, &listener);
  });
}

TEST_F(TheRegionsOfTheStore, AreReadAgainByTheNextStart) {
  Store({tests::RedRegion()});
  tests::InFreshProcess([] {
    tests::RecordListener listener;
    const WindowBlankingChanges& changes = Started(listener);
    EXPECT_THAT(listener.Next(), testing::ElementsAre(kRed));
    changes.Stop();
    Store({tests::BlueRegion()});
    changes.Start();  // tells nobody of the blue one
    Store({tests::GreenRegion()});
    EXPECT_THAT(listener.Next(), testing::ElementsAre(kGreen));
    changes.Unsubscribe(&tests::RecordListener::Hear, &listener);
  });
}

}  // namespace
}  // namespace analytics
