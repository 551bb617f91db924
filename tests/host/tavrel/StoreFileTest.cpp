#include <cstdlib>
#include <filesystem>
#include <ostream>
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

using testing::AllOf;
using testing::HasSubstr;
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

TEST_F(TheFile, KeepsItsPermissions) {
  Write("[A]\nx=1\n");
  fs::permissions(Path(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_write);
  Set("A", "x", "2");
  EXPECT_EQ(fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_write,
            fs::status(Path()).permissions());
}

TEST_F(TheFile, MayBeNamedByALink) {
  Write("[A]\nx=1\n");
  fs::create_symlink(Path(), Below("link.ini"));
  setenv("TAVREL_SETTINGS", Below("link.ini").c_str(), 1);
  Set("A", "x", "2");
  EXPECT_TRUE(fs::is_symlink(Below("link.ini")));
  EXPECT_EQ("[A]\nx=2\n", Text());
}

TEST_F(TheFile, IsCreatedWithItsDirectories) {
  setenv("TAVREL_SETTINGS", Below("a/b/store.ini").c_str(), 1);
  Set("A", "x", "1");
  EXPECT_EQ("[A]\nx=1\n", tests::FileText(Below("a/b/store.ini")));
}

TEST_F(TheFile, IsWrittenOverTheRestOfACrash) {
  m_directory.Write("store.ini.new", "[A]\nx=1\nthis is longer than what is written now\n");
  Set("A", "x", "2");
  EXPECT_EQ("[A]\nx=2\n", Text());
  EXPECT_FALSE(fs::exists(Below("store.ini.new")));
}

TEST_F(TheFile, IsWrittenOverTheRestOfACrashThatNobodyMayWrite) {
  fs::permissions(m_directory.Write("store.ini.new", "[A]\n"), fs::perms(0444));
  fs::permissions(m_directory.Path(), fs::perms(0777));
  tests::InFreshProcess([] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    Set("A", "x", "2");
  });
  EXPECT_EQ("[A]\nx=2\n", Text());
  EXPECT_FALSE(fs::exists(Below("store.ini.new")));
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

struct Obstacle {
  const char* name;
  const char* directory;  // a directory in the way, below that of the store
};

void PrintTo(const Obstacle& row, std::ostream* out) { *out << row.name; }

const Obstacle kObstacles[] = {{"InPlaceOfTheLock", "store.ini.lock"},
                               {"InPlaceOfTheNewFile", "store.ini.new"}};

class ADirectory : public tests::StoreTest, public testing::WithParamInterface<Obstacle> {};

TEST_P(ADirectory, IsReportedAndLeavesTheStoreAsItIs) {
  Write("[A]\nx=1\n");
  const std::string obstacle = m_directory.PathOf(GetParam().directory);
  fs::create_directory(obstacle);
  EXPECT_THAT([] { Set("A", "x", "2"); }, ThrowsMessage<std::runtime_error>(
                                              AllOf(HasSubstr(obstacle), HasSubstr("directory"))));
  EXPECT_EQ("[A]\nx=1\n", Text());
}

INSTANTIATE_TEST_SUITE_P(Rows, ADirectory, testing::ValuesIn(kObstacles),
                         testing::PrintToStringParamName());

TEST_F(TheFile, IsReportedIfItsDirectoryCannotBeMade) {
  Write("");
  setenv("TAVREL_SETTINGS", (Path() + "/below/store.ini").c_str(), 1);
  EXPECT_THAT([] { Store().CreatedDirectory(); },
              ThrowsMessage<std::runtime_error>(
                  AllOf(HasSubstr(Path() + "/below"), HasSubstr("Not a directory"))));
}

TEST_F(TheFile, IsReportedIfItsDirectoryCannotBeWritten) {
  Write("[A]\nx=1\n");
  fs::permissions(m_directory.Path(), fs::perms(0555));
  tests::InFreshProcess([this] {
    const tests::Unprivileged user;
    ASSERT_TRUE(user.IsReady());
    EXPECT_THAT([] { Set("A", "x", "2"); }, ThrowsMessage<std::runtime_error>(
                                                AllOf(HasSubstr(Path()), HasSubstr("Permission"))));
  });
  fs::permissions(m_directory.Path(), fs::perms(0700));
  EXPECT_EQ("[A]\nx=1\n", Text());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
