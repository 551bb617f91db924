#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include "tests/host/tavrel/StoreTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Unprivileged.h"

namespace tavrel::settings {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAfter = "[A]\nx=2\n";

/// The lock of a store that is there.
class TheLockFile : public tests::StoreTest {
 protected:
  TheLockFile() { Write("[A]\nx=1\n"); }

  std::string LockPath() const { return Path() + ".lock"; }

  static struct stat StateOf(const std::string& path) {
    struct stat state = {};
    EXPECT_EQ(0, stat(path.c_str(), &state)) << path;
    return state;
  }
};

struct Rights {
  const char* name;
  mode_t store;
  mode_t lock;
};

void PrintTo(const Rights& row, std::ostream* out) { *out << row.name; }

const Rights kRights[] = {{"OfOne", 0600, 0600},    {"OfOneReadByAll", 0644, 0600},
                          {"OfAGroup", 0660, 0660}, {"OfAGroupReadByAll", 0664, 0660},
                          {"OfAll", 0666, 0666},    {"OfAProgram", 0755, 0600}};

class TheRightsOfTheLock : public TheLockFile, public testing::WithParamInterface<Rights> {};

TEST_P(TheRightsOfTheLock, AreThoseOfWhoMayWrite) {
  fs::permissions(Path(), fs::perms(GetParam().store));
  Set("A", "x", "2");
  EXPECT_EQ(GetParam().lock, StateOf(LockPath()).st_mode & 07777U);
}

TEST_P(TheRightsOfTheLock, AreLimitedWhereTheyWereNot) {
  fs::permissions(Path(), fs::perms(GetParam().store));
  fs::permissions(m_directory.Write("store.ini.lock", ""), fs::perms(0777));
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ(GetParam().lock, StateOf(LockPath()).st_mode & 07777U);
}

INSTANTIATE_TEST_SUITE_P(Rows, TheRightsOfTheLock, testing::ValuesIn(kRights),
                         testing::PrintToStringParamName());

TEST_F(TheLockFile, OfANewStoreIsForThoseWhoMayWriteIt) {
  fs::remove(Path());
  const mode_t mask = umask(0002);
  Set("A", "x", "2");
  umask(mask);
  EXPECT_EQ(0664U, StateOf(Path()).st_mode & 07777U);
  EXPECT_EQ(0660U, StateOf(LockPath()).st_mode & 07777U);
}

TEST_F(TheLockFile, CanBeOpenedByAnOwnerWhoMayAllowHimselfToWrite) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write without permission.";
  fs::permissions(Path(), fs::perms(0464));
  Set("A", "x", "2");
  EXPECT_EQ(0660U, StateOf(LockPath()).st_mode & 07777U);
}

TEST_F(TheLockFile, IsTheStoresOwners) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file away.";
  ASSERT_EQ(0, chown(Path().c_str(), 1234, 5678));
  fs::permissions(m_directory.Write("store.ini.lock", ""), fs::perms(0600));
  Set("A", "x", "2");
  EXPECT_EQ(1234U, StateOf(LockPath()).st_uid);
  EXPECT_EQ(5678U, StateOf(LockPath()).st_gid);
}

class AWriterWhoIsRefused : public TheLockFile, public testing::WithParamInterface<mode_t> {};

TEST_P(AWriterWhoIsRefused, LeavesNoLockThatWouldKeepOutTheOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write as another user.";
  fs::permissions(Path(), fs::perms(GetParam()));
  fs::permissions(m_directory.Path(), fs::perms(01777));
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(Path(), "cannot write "));
  });
  EXPECT_FALSE(fs::exists(LockPath()));
}

INSTANTIATE_TEST_SUITE_P(ToAStoreThatIsReadByAllOrWrittenByAll, AWriterWhoIsRefused,
                         testing::Values(0644, 0666));

TEST_F(TheLockFile, IsNotMadeForAStoreThatNobodyMayWrite) {
  fs::permissions(Path(), fs::perms(0444));
  EXPECT_THROW(Set("A", "x", "2"), std::runtime_error);
  EXPECT_FALSE(fs::exists(LockPath()));
}

class ALockThatTheOwnerMayNotOpen : public TheLockFile {
 protected:
  /// Gives the store away, but not its lock.
  void GiveStoreAway() const {
    fs::permissions(m_directory.Write("store.ini.lock", ""), fs::perms(0600));
    ASSERT_EQ(0, chown(Path().c_str(), 65534, getegid()));
    fs::permissions(Path(), fs::perms(0666));
  }
};

TEST_F(ALockThatTheOwnerMayNotOpen, IsMadeAgainByTheOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file away.";
  GiveStoreAway();
  fs::permissions(m_directory.Path(), fs::perms(0777));
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    Set("A", "x", "2");
  });
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ(65534U, StateOf(LockPath()).st_uid);
}

TEST_F(ALockThatTheOwnerMayNotOpen, IsReportedWhereItCannotBeRemoved) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file away.";
  GiveStoreAway();
  fs::permissions(m_directory.Path(), fs::perms(01777));
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(LockPath(), "Permission denied"));
  });
}

TEST_F(ALockThatTheOwnerMayNotOpen, IsLeftAloneByOthers) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file away.";
  GiveStoreAway();
  ASSERT_EQ(0, chown(Path().c_str(), 1234, getegid()));
  fs::permissions(m_directory.Path(), fs::perms(0777));
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(LockPath(), "Permission denied"));
  });
}

TEST_F(TheLockFile, IsUsedAsItIsWhereItCannotBeMadeAgain) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write as another user.";
  fs::permissions(m_directory.Write("store.ini.lock", ""), fs::perms(0666));
  ASSERT_EQ(0, chown(Path().c_str(), 65534, getegid()));
  fs::permissions(m_directory.Path(), fs::perms(01777));  // where only an owner may remove
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    Set("A", "x", "2");
  });
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ(0U, StateOf(LockPath()).st_uid);
}

}  // namespace
}  // namespace tavrel::settings
