#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/FaultRows.h"
#include "tests/platform/LoadedBlanking.h"
#include "tests/support/Figures.h"
#include "tests/support/fakes/EachCallFailing.h"

namespace {

using fakes::Fault;
using fakes::Thrown;
using tests::Aftermath;
using tests::Calls;
using tests::FaultRow;
using tests::IniFile;
using tests::Refused;

class AFailingPlatform : public tests::LoadedBlanking,
                         public testing::WithParamInterface<std::tuple<FaultRow, Refused, Thrown>> {
 protected:
  static const FaultRow& Row() { return std::get<0>(GetParam()); }
  static Refused Lock() { return std::get<1>(GetParam()); }
  static Thrown What() { return std::get<2>(GetParam()); }

  void Prepare() {
    if (Row().isFirstUse)
      LoadAlone();
    else
      LoadStarted();
    if (Row().isStopped) m_library->Stop();
    Store({tests::RedRegion(), tests::BlueRegion()});
    Refuse(Lock());
  }

  void Operate() { Row().operation({*m_library, m_callback, m_off}); }

  /// The calls without the release of a lock that is refused.
  static Calls AsLocked(Calls calls) {
    if (Lock() != Refused::kNone)
      calls.erase(std::remove(calls.begin(), calls.end(), "Mutex::Unlock()"), calls.end());
    return calls;
  }

  /// Expects the undisturbed calls up to the one that failed, and then no others than `after`.
  void ExpectCalls(const Fault& fault, const Calls& after) const {
    const Calls rest = AsLocked(after);
    ASSERT_GT(fault.calls.size(), rest.size());
    const auto middle = fault.calls.end() - static_cast<std::ptrdiff_t>(rest.size());
    const auto disturbed =
        std::mismatch(fault.calls.begin(), middle, m_undisturbed.begin(), m_undisturbed.end());
    EXPECT_EQ(middle, disturbed.first) << *disturbed.first << " is another call";
    EXPECT_EQ(fault.call, *(middle - 1));
    EXPECT_EQ(rest, Calls(middle, fault.calls.end()));
  }

  static void ExpectLocks(const Calls& calls) {
    const auto locks = std::count(calls.begin(), calls.end(), "Mutex::Lock()");
    EXPECT_EQ(Row().locks, locks);
    EXPECT_EQ(Lock() == Refused::kNone ? locks : 0,
              std::count(calls.begin(), calls.end(), "Mutex::Unlock()"));
  }

  /// Expects what the row says of the state.
  void ExpectState(const Aftermath& expected) {
    EXPECT_EQ(expected.record, Record());
    EXPECT_EQ(expected.subscribers, Subscribers());
    if (m_callback) {
      Deliver(m_off);
      EXPECT_EQ(expected.clears ? std::vector<tests::Yuv>() : expected.record, Record());
    }
    EXPECT_EQ(expected.isStarted, WasStarted());
    ExpectStartsAndStops();
  }

  void Check(const Fault& fault) {
    SCOPED_TRACE("failing: " + (fault.call.empty() ? "nothing" : fault.call));
    const Aftermath expected = Row().aftermath(fault);
    EXPECT_EQ(expected.letsOut, fault.gotOut);
    ExpectLocks(fault.calls);
    if (fault.call.empty())
      EXPECT_EQ(m_undisturbed, fault.calls);
    else
      ExpectCalls(fault, expected.calls);
    ExpectState(expected);
  }

  /// What the operation makes the platform see where nothing fails.
  void NoteUndisturbed() {
    Prepare();
    m_undisturbed = tests::CallsDuring([&] { Operate(); });
  }

 private:
  const IniFile m_off = tests::Switched(false);
  Calls m_undisturbed;
};

TEST_P(AFailingPlatform, LeavesWhatItsFailedCallSays) {
  NoteUndisturbed();
  const int failed = fakes::WithEachPlatformCallFailing(
      What(), [&] { Prepare(); }, [&] { Operate(); }, [&](const Fault& fault) { Check(fault); });
  EXPECT_EQ(Row().hasCalls, failed > 0);
  tests::Count("platform_calls_failed", failed);
  if (Lock() == Refused::kNone && What() == Thrown::kFailure) tests::Count("operations");
}

std::string NameOf(const testing::TestParamInfo<AFailingPlatform::ParamType>& info) {
  const auto& [row, refused, thrown] = info.param;
  return row.name + tests::NameOf(refused) + fakes::NameOf(thrown);
}

INSTANTIATE_TEST_SUITE_P(During, AFailingPlatform,
                         testing::Combine(testing::ValuesIn(tests::kFaultRows),
                                          testing::ValuesIn(tests::kRefusals),
                                          testing::ValuesIn(fakes::kAllThrown)),
                         &NameOf);

}  // namespace
