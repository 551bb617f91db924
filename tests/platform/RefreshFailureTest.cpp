#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using tests::IniFile;

IniFile TwoRegions() { return tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()}); }

// How often two regions make a refresh read: each time the switch, the groups 1 to 3 and two names,
// and then the switch, and of each region the name and the four parts of its colour.
constexpr int kReads = 1 + 3 + 2 + 1 + 2 * 5;

void FailAtRead(int nth) { fakes::CallLog::Instance().FailAt("IniFile::", nth); }

// The settings are handed over, or merged, before they are read.
constexpr int kBeforeReading = 1;

TEST(ARefreshOfTwoRegions, ReadsAsOftenAsTheTestsBelowLetItFail) {
  tests::InFreshProcess([] {
    fakes::Platform::Instance().stored = TwoRegions();
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    fakes::CallLog::Instance().Clear();
    changes.Start();
    EXPECT_THAT(fakes::CallLog::Instance().CallsOf("IniFile::"), SizeIs(kBeforeReading + kReads));
  });
}

/// A refresh whose nth read of the settings fails.
class AFailingRefresh : public testing::TestWithParam<int> {
 protected:
  /// Starts with two regions stored and the refresh failing.
  static const WindowBlankingChanges& FailingStart() {
    fakes::Platform::Instance().stored = TwoRegions();
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    fakes::CallLog::Instance().Clear();
    FailAtRead(kBeforeReading + GetParam());
    EXPECT_NO_THROW(changes.Start());
    return changes;
  }
};

TEST_P(AFailingRefresh, DoesNotKeepStartFromStarting) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = FailingStart();
    EXPECT_THAT(fakes::Platform::Instance().subscriptions, SizeIs(1));
    EXPECT_THAT(tests::CallsDuring([&] { changes.Start(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

TEST_P(AFailingRefresh, ReleasesTheLockOfStart) {
  tests::InFreshProcess([] {
    FailingStart();
    EXPECT_EQ("Mutex::Unlock()", fakes::CallLog::Instance().Calls().back());
    EXPECT_THAT(fakes::CallLog::Instance().CallsOf("Mutex::"), SizeIs(2));
  });
}

TEST_P(AFailingRefresh, LeavesANewRecordEmpty) {
  tests::InFreshProcess([] {
    FailingStart();
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST_P(AFailingRefresh, IsMadeUpForByTheNextChange) {
  tests::InFreshProcess([] {
    FailingStart();
    EXPECT_THAT(tests::ColoursOf(tests::ListenerAfter(IniFile()).record),
                ElementsAre(tests::kRed, tests::kBlue));
  });
}

TEST_P(AFailingRefresh, OfAChangeTellsSubscribersTheOldRecord) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::GreenRegion()}));
    const IniFile change = TwoRegions();
    FailAtRead(kBeforeReading + GetParam());
    const tests::Listener listener = tests::ListenerAfter(change);
    EXPECT_EQ(1, listener.calls);
    EXPECT_THAT(tests::ColoursOf(listener.record), ElementsAre(tests::kGreen));
  });
}

TEST_P(AFailingRefresh, OfAChangeKeepsWhatWasMerged) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::GreenRegion()}));
    const IniFile change = TwoRegions();
    FailAtRead(kBeforeReading + GetParam());
    tests::Change(change);
    EXPECT_THAT(tests::ColoursOf(tests::ListenerAfter(IniFile()).record),
                ElementsAre(tests::kRed, tests::kBlue));
  });
}

INSTANTIATE_TEST_SUITE_P(Read, AFailingRefresh, testing::Range(1, kReads + 1));

}  // namespace
}  // namespace analytics
