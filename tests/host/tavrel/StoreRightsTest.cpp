#include <cstdint>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/xattr.h>

#include "tests/host/tavrel/StoreTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Unprivileged.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kUser = 65534;  // whom `Unprivileged` acts as
constexpr const char* kBefore = "[A]\nx=1\n";
constexpr const char* kAfter = "[A]\nx=2\n";

class AReplacedFile : public tests::StoreTest {
 protected:
  AReplacedFile() { Write(kBefore); }

  struct stat State() const {
    struct stat state = {};
    EXPECT_EQ(0, stat(Path().c_str(), &state));
    return state;
  }

  /// Makes it root's own file that anybody may write, in a directory that anybody may change.
  void OpenToAll() const {
    fs::permissions(Path(), fs::perms(0666));
    fs::permissions(m_directory.Path(), fs::perms(0777));
  }

  void ExpectUntouched() const {
    EXPECT_EQ(kBefore, Text());
    for (const std::string& name : Names()) EXPECT_NE(0U, name.rfind(".store.ini", 0)) << name;
  }
};

TEST_F(AReplacedFile, KeepsItsOwnerAndGroupIfRootWritesIt) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file away.";
  fs::permissions(Path(), fs::perms(0600));
  ASSERT_EQ(0, chown(Path().c_str(), 1234, 5678));
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ(1234U, State().st_uid);
  EXPECT_EQ(5678U, State().st_gid);
  EXPECT_EQ(0600U, State().st_mode & 07777U);
}

TEST_F(AReplacedFile, CanBeWrittenByItsOwnerAfterRootWroteIt) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write as two users.";
  fs::permissions(Path(), fs::perms(0600));
  for (const std::string& path : {m_directory.Path(), Path()})
    ASSERT_EQ(0, chown(path.c_str(), kUser, getegid()));
  Set("A", "x", "3");
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    Set("A", "x", "2");
  });
  EXPECT_EQ(kAfter, Text());
}

TEST_F(AReplacedFile, StaysAsItIsWhereItsOwnerWouldChange) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write as another user.";
  OpenToAll();
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); },
                tests::FailsOn(Path(), "write it as its owner or as root"));
  });
  ExpectUntouched();
  EXPECT_EQ(0U, State().st_uid);
}

TEST_F(AReplacedFile, StaysAsItIsWhereItsGroupWouldChange) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may give a file to any group.";
  OpenToAll();
  ASSERT_EQ(0, chown(Path().c_str(), kUser, 5678));
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THROW(Set("A", "x", "2"), std::runtime_error);
  });
  ExpectUntouched();
}

TEST_F(AReplacedFile, StaysAsItIsIfItsWriterMayNotWriteIt) {
  if (geteuid() != 0) GTEST_SKIP() << "Only root may write as another user.";
  fs::permissions(Path(), fs::perms(0644));
  fs::permissions(m_directory.Path(), fs::perms(0777));
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THROW(Set("A", "x", "2"), std::runtime_error);
  });
  ExpectUntouched();
}

TEST_F(AReplacedFile, StaysAsItIsIfItsOwnerMayNotWriteIt) {
  fs::permissions(Path(), fs::perms(0466));
  for (const std::string& path : {m_directory.Path(), Path()})
    if (geteuid() == 0) {
      ASSERT_EQ(0, chown(path.c_str(), kUser, getegid()));
    }
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THROW(Set("A", "x", "2"), std::runtime_error);
  });
  ExpectUntouched();
}

TEST_F(AReplacedFile, StaysAsItIsIfNobodyMayWriteIt) {
  fs::permissions(Path(), fs::perms(0444));
  EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(Path(), "Permission denied"));
  ExpectUntouched();
}

struct Mode {
  const char* name;
  mode_t before;
  mode_t after;
};

void PrintTo(const Mode& row, std::ostream* out) { *out << row.name; }

const Mode kModes[] = {{"OfOne", 0600, 0600},          {"OfAll", 0666, 0666},
                       {"OfOneAndOthers", 0602, 0602}, {"Executable", 0755, 0755},
                       {"SetUserId", 04755, 0755},     {"SetGroupId", 02775, 0775},
                       {"Sticky", 01644, 0644}};

class TheMode : public AReplacedFile, public testing::WithParamInterface<Mode> {};

TEST_P(TheMode, IsKeptButForSpecialBits) {
  ASSERT_EQ(0, chmod(Path().c_str(), GetParam().before));
  Set("A", "x", "2");
  EXPECT_EQ(GetParam().after, State().st_mode & 07777U);
}

INSTANTIATE_TEST_SUITE_P(Rows, TheMode, testing::ValuesIn(kModes),
                         testing::PrintToStringParamName());

TEST_F(AReplacedFile, HasTheUsualModeIfItIsNew) {
  fs::remove(Path());
  const mode_t mask = umask(0027);
  Set("A", "x", "2");
  umask(mask);
  EXPECT_EQ(0640U, State().st_mode & 07777U);
}

/// An access list as the kernel takes it: the owner and the user 1234 may read and write, others
/// may not; the mode shows for the group what the list allows at most.
std::string AccessList() {
  struct Entry {
    std::uint16_t kind;
    std::uint16_t permissions;
    std::uint32_t id;
  };
  constexpr std::uint32_t kNobody = 0xffffffff;
  const std::vector<Entry> entries = {{0x01, 6, kNobody},
                                      {0x02, 6, 1234},
                                      {0x04, 0, kNobody},
                                      {0x10, 6, kNobody},
                                      {0x20, 0, kNobody}};
  constexpr std::uint32_t kVersion = 2;
  std::string list(reinterpret_cast<const char*>(&kVersion), sizeof kVersion);
  return list.append(reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(Entry));
}

bool SetAccessList(const std::string& path, const char* kind) {
  const std::string list = AccessList();
  return setxattr(path.c_str(), kind, list.data(), list.size(), 0) == 0;
}

std::string AccessListOf(const std::string& path) {
  std::string list(1000, '\0');
  const ssize_t size = getxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size());
  return list.substr(0, size > 0 ? static_cast<std::size_t>(size) : 0);
}

TEST_F(AReplacedFile, KeepsItsAccessList) {
  if (!SetAccessList(Path(), "system.posix_acl_access"))
    GTEST_SKIP() << "This file system has no access lists.";
  Set("A", "x", "2");
  EXPECT_EQ(AccessList(), AccessListOf(Path()));
}

TEST_F(AReplacedFile, GetsNoAccessListFromItsDirectory) {
  if (!SetAccessList(m_directory.Path(), "system.posix_acl_default"))
    GTEST_SKIP() << "This file system has no access lists.";
  Set("A", "x", "2");
  EXPECT_EQ(kAfter, Text());
  EXPECT_EQ("", AccessListOf(Path()));
}

TEST_F(AReplacedFile, IsNoDevice) {
  fs::remove(Path());
  if (mknod(Path().c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0)  // as /dev/null
    GTEST_SKIP() << "Only root may make a device.";
  EXPECT_THROW(Set("A", "x", "2"), std::runtime_error);
  EXPECT_TRUE(fs::is_character_file(Path()));
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
