#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/Unprivileged.h"
#include "tests/support/XmlVersion.h"

namespace analytics {
namespace {

namespace fs = std::filesystem;

constexpr char kText[] = "<settings><maxResource>4711</maxResource></settings>";

/// A file and how it is named; "@" stands for the directory of the test.
struct Row {
  const char* name;
  std::string file;  // not written if empty
  std::string path;
  bool isLoaded;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"Blanks", "a b.ini", "@/a b.ini", true},
    {"Utf8", "\xC3\xA4\xE2\x82\xAC.ini", "@/\xC3\xA4\xE2\x82\xAC.ini", true},
    {"BytesThatAreNotUtf8", "\xFF\xFE.ini", "@/\xFF\xFE.ini", true},
    {"Percent", "100%.ini", "@/100%.ini", true},
    {"Escape", "a%20b.ini", "@/a%20b.ini", true},
    {"EscapeForABlank", "a b.ini", "@/a%20b.ini", tests::kXmlOpensResolvedNames},
    {"FormatOfAMessage", "%s%n.ini", "@/%s%n.ini", true},
    {"ShellText", "~$HOME`*[a].ini", "@/~$HOME`*[a].ini", true},
    {"UrlOfAFile", "a b.ini", "file://@/a%20b.ini", true},
    {"LongestName", std::string(255, 'n'), "@/" + std::string(255, 'n'), true},
    {"NameTooLong", "", "@/" + std::string(256, 'n'), false},
    {"NullDevice", "", "/dev/null", false},
    {"EmptyFile", "", "@/empty.ini", false},
    {"Directory", "a.ini", "@", false},
    {"MissingDirectory", "", "@/none/a.ini", false},
    {"BelowAFile", "a.ini", "@/a.ini/b.ini", false},
};

class ASettingsFile : public testing::TestWithParam<Row> {
 protected:
  ASettingsFile() {
    m_directory.Write("empty.ini", "");
    if (!GetParam().file.empty()) m_directory.Write(GetParam().file, kText);
    const std::string::size_type place = m_path.find('@');
    if (place != std::string::npos) m_path.replace(place, 1, m_directory.Path());
  }

  tests::Calls Expected() const {
    return GetParam().isLoaded ? tests::GoodLoad(m_path) : tests::FailedLoad(m_path);
  }

  static std::int64_t ExpectedResource() { return GetParam().isLoaded ? 4711 : 100000; }

  const tests::TemporaryDirectory m_directory;
  std::string m_path = GetParam().path;
};

TEST_P(ASettingsFile, IsLoadedUnderItsName) {
  tests::InFreshProcess([this] {
    Settings::MaxResource();
    fakes::CallLog::Instance().Clear();
    EXPECT_EQ(GetParam().isLoaded, Settings::LoadSettings(m_path));
    EXPECT_EQ(ExpectedResource(), Settings::MaxResource());
    EXPECT_EQ(Expected(), tests::CallsSoFar());
  });
}

TEST_P(ASettingsFile, IsLoadedFromTheEnvironmentWhereItsNameIsQuoted) {
  tests::InFreshProcess([this] {
    setenv("ANALYTICS_INI", ("'" + m_path + "'").c_str(), 1);
    EXPECT_EQ(ExpectedResource(), Settings::MaxResource());
    EXPECT_EQ(Expected(), tests::CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Rows, ASettingsFile, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

/// A path with a NUL, which the environment cannot hold.
TEST(APathWithANul, IsLoadedAndReportedUpToIt) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.Write("a.ini", kText);
  tests::InFreshProcess([&path] {
    Settings::MaxResource();
    fakes::CallLog::Instance().Clear();
    EXPECT_TRUE(Settings::LoadSettings(path + std::string("\0b", 2)));
    EXPECT_EQ(tests::GoodLoad(path), tests::CallsSoFar());
  });
}

TEST(APathWithANul, FailsWhereNothingIsBeforeItAndIsNotTakenForNoPath) {
  const tests::TemporaryDirectory directory;
  setenv("ANALYTICS_INI", directory.Write("a.ini", kText).c_str(), 1);
  tests::InFreshProcess([] {
    Settings::MaxResource();
    fakes::CallLog::Instance().Clear();
    EXPECT_FALSE(Settings::LoadSettings(std::string("\0a", 2)));
    EXPECT_EQ(tests::FailedLoad(""), tests::CallsSoFar());
  });
}

TEST(ASettingsFileWithoutPermission, IsNotLoadedByAUserWhoIsNotRoot) {
  if (!tests::Unprivileged().IsReady()) GTEST_SKIP() << "root may not change its user";
  const tests::TemporaryDirectory directory;
  fs::permissions(directory.Path(), fs::perms{0755});
  const std::string path = directory.Write("a.ini", kText);
  fs::permissions(path, fs::perms::none);
  tests::InFreshProcess([&path] {
    const tests::Unprivileged user;
    setenv("ANALYTICS_INI", path.c_str(), 1);
    EXPECT_EQ(100000, Settings::MaxResource());
    EXPECT_EQ(tests::FailedLoad(path), tests::CallsSoFar());
  });
}

}  // namespace
}  // namespace analytics
