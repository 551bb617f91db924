#include <future>
#include <mutex>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using testing::ElementsAre;
using testing::Pair;
using tests::ChangeRecorder;

/// A delivery during which its subscription ends, and the callback is subscribed again.
class ALateDelivery : public tests::StoreTest {
 protected:
  ALateDelivery() { Write("[A]\nx=1\n"); }

  /// Ends the subscription of a callback and makes one that knows what the store now holds.
  void SubscribeAnew(ChangeRecorder& recorder) {
    m_client.UnSubscribe(&recorder);
    IniFile settings;
    m_client.GetSettings("A", settings);
    m_client.Subscribe(&recorder, "A");
  }

  TavrelSettingsClient m_client{TavrelSettingsClient::kObserve};
};

TEST_F(ALateDelivery, IsCorrectedByASubscriptionThatWasMadeAfterAChange) {
  std::mutex heldByTheCaller;
  std::promise<void> hasBegun;
  std::once_flag first;
  ChangeRecorder waiter([&] {
    std::call_once(first, [&] { hasBegun.set_value(); });
    const std::lock_guard<std::mutex> lock(heldByTheCaller);
  });
  m_client.Subscribe(&waiter, "A");
  {
    const std::lock_guard<std::mutex> lock(heldByTheCaller);
    ReplaceBy("[A]\nx=2\ny=2\n");
    hasBegun.get_future().wait();
    ReplaceBy("[A]\nx=3\n");
    SubscribeAnew(waiter);
  }
  EXPECT_EQ("2", waiter.Next().AllGroups().at("A").at("x"));
  const IniFile correction = waiter.Next();
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "3"}}}}), correction.AllGroups());
  EXPECT_THAT(correction.RemovedKeys(), ElementsAre(Pair("A", "y")));
}

TEST_F(ALateDelivery, ThatCameBeforeNewerSettingsWereGotHidesNoChangeBack) {
  std::once_flag first;
  ChangeRecorder leaver([&] {
    std::call_once(first, [&] {
      ReplaceBy("[A]\nx=3\n");
      SubscribeAnew(leaver);
      ReplaceBy("[A]\nx=2\n");
    });
  });
  m_client.Subscribe(&leaver, "A");
  ReplaceBy("[A]\nx=2\n");
  leaver.Next();
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), leaver.Next().AllGroups());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
