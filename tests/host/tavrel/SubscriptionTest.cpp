#include <atomic>
#include <filesystem>
#include <future>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using testing::HasSubstr;
using testing::ThrowsMessage;
using tests::ChangeRecorder;

/// Subscriptions are served in the order in which they were made: once the last one has got a
/// change, those before it have got theirs or will get none.
class ASubscription : public tests::StoreTest {
 protected:
  ASubscription() { Write("[A]\nx=1\n"); }

  /// Makes a change of the group "A" and waits until all subscriptions so far were served.
  void ChangeAndWait(const std::string& value) {
    ChangeRecorder last;
    m_client->Subscribe(&last, "A");
    ReplaceBy("[A]\nx=" + value + "\n");
    last.WaitForValue("A", "x", value);
    m_client->UnSubscribe(&last);
  }

  ChangeRecorder m_recorder;
  std::unique_ptr<TavrelSettingsClient> m_client =
      std::make_unique<TavrelSettingsClient>(TavrelSettingsClient::kObserve);
};

TEST_F(ASubscription, NamesItsClientAsTheSource) {
  m_client->Subscribe(&m_recorder, "A");
  ReplaceBy("[A]\nx=2\n");
  m_recorder.Next();
  EXPECT_EQ(m_client.get(), m_recorder.Source());
}

TEST_F(ASubscription, TellsNothingOfGroupsThatItDoesNotMatch) {
  m_client->Subscribe(&m_recorder, "B*");
  ChangeAndWait("2");
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, TellsNothingOfARewriteWithTheSameSettings) {
  m_client->Subscribe(&m_recorder, "A");
  ReplaceBy("# only a comment is new\n[A]\nx = 1\n");
  ChangeAndWait("2");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), m_recorder.Next().AllGroups());
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, TellsOfAChangeSinceTheSettingsWereGot) {
  IniFile settings;
  m_client->GetSettings("A", settings);
  ReplaceBy("[A]\ny=2\n");
  m_client->Subscribe(&m_recorder, "A");
  const IniFile change = m_recorder.Next();
  settings.MergeSettings(change);
  EXPECT_EQ((IniFile::Groups{{"A", {{"y", "2"}}}}), settings.AllGroups());
}

TEST_F(ASubscription, ComparesWithWhatWasGotLast) {
  IniFile settings;
  m_client->GetSettings("A", settings);
  ReplaceBy("[A]\nx=1\ny=2\n");
  m_client->GetSettings("A", settings);
  ReplaceBy("[A]\nx=1\ny=2\nz=3\n");
  m_client->Subscribe(&m_recorder, "A");
  EXPECT_EQ((IniFile::Groups{{"A", {{"z", "3"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(ASubscription, ComparesWithTheStoreIfOnlyOtherPatternsWereGot) {
  IniFile settings;
  m_client->GetSettings("A*", settings);
  ReplaceBy("[A]\nx=2\n");
  m_client->Subscribe(&m_recorder, "A");
  ChangeAndWait("3");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "3"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(ASubscription, TellsNothingAtItsStartIfNothingHasChanged) {
  IniFile settings;
  m_client->GetSettings("A", settings);
  m_client->Subscribe(&m_recorder, "A");
  ChangeAndWait("2");
  m_recorder.Next();
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, ToAMalformedStoreIsRefused) {
  ReplaceBy("[A]\nabc\n");
  EXPECT_THAT([this] { m_client->Subscribe(&m_recorder, "A"); },
              ThrowsMessage<std::runtime_error>(HasSubstr(Path() + ":2: ")));
  ReplaceBy("[A]\nx=1\n");
  ChangeAndWait("2");
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, OfTwoPatternsIsServedForEach) {
  m_client->Subscribe(&m_recorder, "A");
  m_client->Subscribe(&m_recorder, "*");
  ChangeAndWait("2");
  EXPECT_EQ(m_recorder.Next().AllGroups(), m_recorder.Next().AllGroups());
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, SurvivesAnExceptionFromACallback) {
  ChangeRecorder thrower([] { throw std::runtime_error("on purpose"); });
  m_client->Subscribe(&thrower, "A");
  m_client->Subscribe(&m_recorder, "A");
  ChangeAndWait("2");
  ChangeAndWait("3");
  m_recorder.WaitForValue("A", "x", "3");
}

TEST_F(ASubscription, MayBeMadeInADelivery) {
  ChangeRecorder subscriber([this] { m_client->Subscribe(&m_recorder, "A"); });
  m_client->Subscribe(&subscriber, "A");
  ReplaceBy("[A]\nx=2\n");
  subscriber.Next();
  m_client->UnSubscribe(&subscriber);
  ReplaceBy("[A]\nx=3\n");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "3"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(ASubscription, MayEndInItsOwnDelivery) {
  ChangeRecorder leaver([&] { m_client->UnSubscribe(&leaver); });
  m_client->Subscribe(&leaver, "A");
  ChangeAndWait("2");
  ChangeAndWait("3");
  leaver.Next();
  EXPECT_FALSE(leaver.HasNext());
}

TEST_F(ASubscription, ThatHasEndedGetsNoDeliveryThatHadNotBegun) {
  ChangeRecorder first([this] { m_client->UnSubscribe(&m_recorder); });
  m_client->Subscribe(&first, "A");
  m_client->Subscribe(&m_recorder, "A");
  ChangeAndWait("2");
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, EndsForAllPatternsOfItsCallbackAndForNoOther) {
  ChangeRecorder other;
  m_client->Subscribe(&m_recorder, "A");
  m_client->Subscribe(&other, "A");
  m_client->Subscribe(&m_recorder, "*");
  m_client->UnSubscribe(&m_recorder);
  ChangeAndWait("2");
  EXPECT_FALSE(m_recorder.HasNext());
  EXPECT_TRUE(other.HasNext());
}

TEST_F(ASubscription, EndsWithoutWaitingForADeliveryThatWaitsForTheCaller) {
  std::mutex heldByTheCaller;
  std::promise<void> hasBegun;
  ChangeRecorder waiter([&] {
    hasBegun.set_value();
    const std::lock_guard<std::mutex> lock(heldByTheCaller);
  });
  m_client->Subscribe(&waiter, "A");
  {
    const std::lock_guard<std::mutex> lock(heldByTheCaller);
    ReplaceBy("[A]\nx=2\n");
    hasBegun.get_future().wait();
    m_client->UnSubscribe(&waiter);
  }
  ChangeAndWait("3");
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), waiter.Next().AllGroups());
  EXPECT_FALSE(waiter.HasNext());
}

TEST_F(ASubscription, ThatWasNeverMadeEndsQuietly) {
  m_client->UnSubscribe(&m_recorder);
  m_client->Subscribe(&m_recorder, "A");
  ChangeRecorder stranger;
  m_client->UnSubscribe(&stranger);
  ReplaceBy("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(ASubscription, MayBeMadeAgain) {
  m_client->Subscribe(&m_recorder, "A");
  m_client->UnSubscribe(&m_recorder);
  m_client->Subscribe(&m_recorder, "A");
  ReplaceBy("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
}

TEST_F(ASubscription, EndsWithItsClient) {
  m_client->Subscribe(&m_recorder, "A");
  m_client = std::make_unique<TavrelSettingsClient>(TavrelSettingsClient::kObserve);
  ChangeAndWait("2");
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST_F(ASubscription, HasItsClientWaitForADeliveryInProgress) {
  std::promise<void> hasBegun;
  std::promise<void> isDestroyedNow;
  std::atomic<bool> hasEnded{false};
  ChangeRecorder waiter([&] {
    hasBegun.set_value();
    isDestroyedNow.get_future().wait();
    for (int turn = 0; turn < 1000; ++turn) std::this_thread::yield();
    hasEnded = true;
  });
  m_client->Subscribe(&waiter, "A");
  ReplaceBy("[A]\nx=2\n");
  hasBegun.get_future().wait();
  isDestroyedNow.set_value();
  m_client.reset();
  EXPECT_TRUE(hasEnded);
}

TEST_F(ASubscription, MayDestroyItsClient) {
  std::promise<void> isDestroyed;
  ChangeRecorder destroyer([&] {
    m_client.reset();
    isDestroyed.set_value();
  });
  m_client->Subscribe(&destroyer, "A");
  m_client->Subscribe(&m_recorder, "A");
  ReplaceBy("[A]\nx=2\n");
  isDestroyed.get_future().wait();
  destroyer.Next();
  m_client = std::make_unique<TavrelSettingsClient>(TavrelSettingsClient::kObserve);
  ChangeAndWait("3");
  EXPECT_FALSE(m_recorder.HasNext());
}

TEST(AClient, WithoutSubscriptionsIsDestroyedQuietly) {
  const tests::TemporaryDirectory directory;
  setenv("TAVREL_SETTINGS", directory.PathOf("store.ini").c_str(), 1);
  { const TavrelSettingsClient client(TavrelSettingsClient::kQuery); }
  EXPECT_TRUE(std::filesystem::is_empty(directory.Path()));
  unsetenv("TAVREL_SETTINGS");
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
