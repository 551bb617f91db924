#include <climits>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>

#include "tests/host/tavrel/StoreTest.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Unprivileged.h"

namespace tavrel {
namespace settings {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::SizeIs;
using testing::ThrowsMessage;

class TheFile : public tests::StoreTest {
 protected:
  std::string Below(const std::string& name) const { return m_directory.PathOf(name); }
};

TEST_F(TheFile, IsReplacedAsAWholeByAWrite) {
  Write("[A]\nx=1\n");
  fs::create_hard_link(Path(), Below("as-it-was.ini"));
  Set("A", "x", "2");
  EXPECT_EQ("[A]\nx=2\n", Text());
  EXPECT_EQ("[A]\nx=1\n", tests::FileText(Below("as-it-was.ini")));
}

TEST_F(TheFile, MayHaveAsLongANameAsLeavesRoomForThatOfTheLock) {
  const std::string name(NAME_MAX - sizeof "lock", 'n');
  setenv("TAVREL_SETTINGS", Below(name).c_str(), 1);
  m_directory.Write("." + name.substr(0, 200) + ".new-12-0", "");  // of another file
  Set("A", "x", "2");
  EXPECT_EQ("[A]\nx=2\n", tests::FileText(Below(name)));
  EXPECT_THAT(Names(), SizeIs(3));
}

TEST_F(TheFile, MayBeNamedByALink) {
  Write("[A]\nx=1\n");
  fs::create_symlink(Path(), Below("link.ini"));
  setenv("TAVREL_SETTINGS", Below("link.ini").c_str(), 1);
  Set("A", "x", "2");
  EXPECT_TRUE(fs::is_symlink(Below("link.ini")));
  EXPECT_EQ("[A]\nx=2\n", Text());
}

TEST_F(TheFile, IsCreatedWhereALinkLeadsTo) {
  fs::create_directory(Below("deep"));
  fs::create_symlink("deep/next.ini", Below("link.ini"));
  fs::create_symlink("../new.ini", Below("deep/next.ini"));
  setenv("TAVREL_SETTINGS", Below("link.ini").c_str(), 1);
  Set("A", "x", "1");
  EXPECT_TRUE(fs::is_symlink(Below("link.ini")));
  EXPECT_TRUE(fs::is_symlink(Below("deep/next.ini")));
  EXPECT_EQ("[A]\nx=1\n", tests::FileText(Below("new.ini")));
  EXPECT_TRUE(fs::exists(Below("new.ini.lock")));
}

TEST_F(TheFile, IsReportedIfLinksLeadToEachOther) {
  fs::create_symlink("b.ini", Below("a.ini"));
  fs::create_symlink("a.ini", Below("b.ini"));
  setenv("TAVREL_SETTINGS", Below("a.ini").c_str(), 1);
  EXPECT_THAT([] { Set("A", "x", "1"); }, tests::FailsOn(Below("a.ini"), "symbolic links"));
}

TEST_F(TheFile, IsCreatedWithItsDirectories) {
  setenv("TAVREL_SETTINGS", Below("a/b/store.ini").c_str(), 1);
  Set("A", "x", "1");
  EXPECT_EQ("[A]\nx=1\n", tests::FileText(Below("a/b/store.ini")));
}

TEST_F(TheFile, IsFoundByTheStateDirectory) {
  tests::InFreshProcess([this] {
    unsetenv("TAVREL_SETTINGS");
    setenv("XDG_STATE_HOME", Below("state").c_str(), 1);
    setenv("HOME", Below("home").c_str(), 1);
    EXPECT_EQ(Below("state/tavrel-settings.ini"), Store().Path());
  });
}

TEST_F(TheFile, IsFoundByTheHomeDirectoryWithoutAStateDirectory) {
  tests::InFreshProcess([this] {
    unsetenv("TAVREL_SETTINGS");
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", Below("home").c_str(), 1);
    Set("A", "x", "1");
    EXPECT_EQ("[A]\nx=1\n", tests::FileText(Below("home/.local/state/tavrel-settings.ini")));
  });
}

TEST_F(TheFile, IsNotNamedByVariablesWithoutValue) {
  tests::InFreshProcess([this] {
    setenv("TAVREL_SETTINGS", "", 1);
    setenv("XDG_STATE_HOME", "", 1);
    setenv("HOME", Below("home").c_str(), 1);
    EXPECT_EQ(Below("home/.local/state/tavrel-settings.ini"), Store().Path());
  });
}

TEST_F(TheFile, IsReportedAsUnknownWithoutVariables) {
  tests::InFreshProcess([] {
    unsetenv("TAVREL_SETTINGS");
    unsetenv("XDG_STATE_HOME");
    unsetenv("HOME");
    EXPECT_THAT([] { Store(); }, ThrowsMessage<std::runtime_error>(HasSubstr("HOME")));
  });
}

TEST_F(TheFile, IsReportedAndLeftAsItIsIfADirectoryIsInPlaceOfTheLock) {
  Write("[A]\nx=1\n");
  fs::create_directory(Below("store.ini.lock"));
  EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(Below("store.ini.lock"), "directory"));
  EXPECT_EQ("[A]\nx=1\n", Text());
}

TEST_F(TheFile, IsReportedIfItsDirectoryCannotBeMade) {
  Write("");
  setenv("TAVREL_SETTINGS", (Path() + "/below/store.ini").c_str(), 1);
  EXPECT_THAT([] { Store().CreatedDirectory(); },
              tests::FailsOn(Path() + "/below", "Not a directory"));
}

TEST_F(TheFile, IsReportedIfItsDirectoryCannotBeWritten) {
  Write("[A]\nx=1\n");
  fs::permissions(m_directory.Path(), fs::perms(0555));
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); }, tests::FailsOn(Path(), "Permission"));
  });
  fs::permissions(m_directory.Path(), fs::perms(0700));
  EXPECT_EQ("[A]\nx=1\n", Text());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
