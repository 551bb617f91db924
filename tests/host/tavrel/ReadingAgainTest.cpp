#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <tavrel/settings/TavrelSettingsClient.h>
#include <unistd.h>

#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/WatchedStore.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Unprivileged.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

using core::IniFile;
using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::ThrowsMessage;

/// Has the process get no further file descriptor, for a scope.
class NoMoreDescriptors {
 public:
  NoMoreDescriptors() {
    getrlimit(RLIMIT_NOFILE, &m_before);
    rlimit none = m_before;
    none.rlim_cur = 3;
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~NoMoreDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }

  NoMoreDescriptors(const NoMoreDescriptors&) = delete;
  NoMoreDescriptors& operator=(const NoMoreDescriptors&) = delete;

 private:
  rlimit m_before;
};

constexpr milliseconds kLongEnoughForARead{300};

class AnUnreadableStore : public tests::WatchedStoreTest {
 protected:
  ~AnUnreadableStore() override { Permit(0700); }

  /// The permissions of the directory that holds the store.
  void Permit(int permissions) const {
    fs::permissions(m_directory.Path(), static_cast<fs::perms>(permissions));
  }

  const std::string m_next = m_directory.Write("next.ini", "[A]\nx=2\n");
};

TEST_F(AnUnreadableStore, IsReadOnceThereAreDescriptorsAgain) {
  if (tests::HasLeakChecker()) GTEST_SKIP() << "sanitizers want descriptors of their own";
  {
    const NoMoreDescriptors limit;
    fs::rename(m_next, Path());
    EXPECT_TRUE(m_recorder.StaysSilentFor(kLongEnoughForARead));
  }
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(AnUnreadableStore, IsReadOnceItMayBeRead) {
  if (geteuid() != 0) GTEST_SKIP() << "only root becomes able to read a file that does not change";
  fs::permissions(m_next, fs::perms(0600));
  Permit(0777);
  {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    fs::rename(m_next, Path());
    EXPECT_TRUE(m_recorder.StaysSilentFor(kLongEnoughForARead));
  }
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "2"}}}}), m_recorder.Next().AllGroups());
}

TEST_F(AnUnreadableStore, IsLookedForWhereItCanNoLongerBeWatched) {
  Permit(0333);
  const tests::Unprivileged user;
  ASSERT_TRUE(user.IsReady());
  ReplaceBy("[A]\nx=2\n");
  m_recorder.WaitForValue("A", "x", "2");
  Write("[A]\nx=3\n");
  m_recorder.WaitForValue("A", "x", "3");
}

TEST_F(AnUnreadableStore, IsReportedIfItsDirectoryCannotBeRead) {
  Permit(0311);
  const tests::Unprivileged user;
  ASSERT_TRUE(user.IsReady());
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  EXPECT_THAT([&] { client.Subscribe(&recorder, "A"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("cannot watch " + Path())));
}

TEST_F(AnUnreadableStore, MayBeBelowADirectoryThatCannotBeRead) {
  fs::create_directory(m_directory.PathOf("open"));
  fs::permissions(m_directory.PathOf("open"), fs::perms(0777));
  Permit(0311);
  setenv("TAVREL_SETTINGS", m_directory.PathOf("open/store.ini").c_str(), 1);
  const tests::Unprivileged user;
  ASSERT_TRUE(user.IsReady());
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  client.Subscribe(&recorder, "A");
  m_directory.Write("open/store.ini", "[A]\nx=2\n");
  recorder.WaitForValue("A", "x", "2");
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
