#include <cstdio>
#include <cstdlib>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/ServedFile.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using tests::CallsSoFar;
using tests::FailedLoad;
using tests::GoodLoad;
using tests::Then;

constexpr char kFirst[] = "/nonexistent/first.ini";

/// `LoadSettings` after a first use that found no file.
class ALoad : public testing::Test {
 protected:
  /// Runs `body` in a process that has forgotten the messages of its first use.
  template <typename Body>
  static void AfterFirstUse(Body body) {
    tests::InFreshProcess([&] {
      setenv("ANALYTICS_INI", kFirst, 1);
      Settings::MaxResource();
      fakes::CallLog::Instance().Clear();
      body();
    });
  }
};

TEST_F(ALoad, AnswersTrueForAFileThatIsParsed) {
  AfterFirstUse([] {
    tests::ServeFile("/served.ini", "<settings/>");
    EXPECT_TRUE(Settings::LoadSettings("/served.ini"));
    EXPECT_EQ(GoodLoad("/served.ini"), CallsSoFar());
  });
}

// An expression that is none would be reported on standard error at each load.
TEST_F(ALoad, HasNothingForLibxml2ToReport) {
  AfterFirstUse([] {
    tests::ServeFile("/served.ini", "<settings/>");
    const tests::XmlErrors errors;
    EXPECT_TRUE(Settings::LoadSettings("/served.ini"));
    EXPECT_THAT(errors.Codes(), testing::IsEmpty());
  });
}

TEST_F(ALoad, ReadsTheFileAgainEachTime) {
  AfterFirstUse([] {
    tests::ServeFile("/served.ini", "<settings><maxResource>1</maxResource></settings>");
    Settings::LoadSettings("/served.ini");
    tests::ServeFile("/served.ini", "<settings><maxResource>2</maxResource></settings>");
    EXPECT_EQ(1, Settings::MaxResource());  // the file is not watched
    Settings::LoadSettings("/served.ini");
    EXPECT_EQ(2, Settings::MaxResource());
    EXPECT_EQ(Then(GoodLoad("/served.ini"), GoodLoad("/served.ini")), CallsSoFar());
  });
}

TEST_F(ALoad, TakesItsPathAsItStands) {
  AfterFirstUse([] {
    setenv("HOME", "/home/tester", 1);
    tests::ServeFile("/home/tester/a.ini", "<settings/>");
    EXPECT_FALSE(Settings::LoadSettings("~/a.ini"));
    EXPECT_FALSE(Settings::LoadSettings("$HOME/a.ini"));
    EXPECT_EQ(Then(FailedLoad("~/a.ini"), FailedLoad("$HOME/a.ini")), CallsSoFar());
  });
}

// What else is opened is libxml2's matter: standard input stands for all of it here.
TEST_F(ALoad, TakesWhateverLibxml2Opens) {
  AfterFirstUse([] {
    const tests::TemporaryDirectory directory;
    const std::string text = "<settings><maxResource>7</maxResource></settings>";
    ASSERT_TRUE(std::freopen(directory.Write("input", text).c_str(), "r", stdin));
    EXPECT_TRUE(Settings::LoadSettings("-"));
    EXPECT_EQ(7, Settings::MaxResource());
  });
}

TEST_F(ALoad, TakesItsPathToItsFirstNul) {
  AfterFirstUse([] {
    tests::ServeFile("/served.ini", "<settings/>");
    EXPECT_TRUE(Settings::LoadSettings(std::string("/served.ini\0x", 13)));
    EXPECT_FALSE(Settings::LoadSettings(std::string("\0", 1)));
    EXPECT_EQ(Then(GoodLoad("/served.ini"), FailedLoad("")), CallsSoFar());
  });
}

TEST_F(ALoad, ReportsAPathThatLooksLikeAFormatAsItStands) {
  AfterFirstUse([] {
    EXPECT_FALSE(Settings::LoadSettings("/nonexistent/%s%d%%.ini"));
    EXPECT_EQ(FailedLoad("/nonexistent/%s%d%%.ini"), CallsSoFar());
  });
}

TEST_F(ALoad, OfNoPathResolvesTheEnvironmentAfresh) {
  AfterFirstUse([] {
    tests::ServeFile("/second.ini", "<settings/>");
    setenv("ANALYTICS_INI", "/second.ini", 1);
    EXPECT_TRUE(Settings::LoadSettings(""));
    setenv("ANALYTICS_INI", "/nonexistent/third.ini", 1);
    EXPECT_FALSE(Settings::LoadSettings(""));
    EXPECT_EQ(Then(GoodLoad("/second.ini"), FailedLoad("/nonexistent/third.ini")), CallsSoFar());
  });
}

TEST_F(ALoad, OfAPathDoesNotLookAtTheEnvironment) {
  AfterFirstUse([] {
    tests::ServeFile("/second.ini", "<settings/>");
    setenv("ANALYTICS_INI", "/second.ini", 1);
    EXPECT_FALSE(Settings::LoadSettings("/nonexistent/third.ini"));
    EXPECT_EQ(FailedLoad("/nonexistent/third.ini"), CallsSoFar());
  });
}

TEST(AFirstUseOfAGoodFile, ReportsNothingButTheLoad) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", "/served.ini", 1);
    tests::ServeFile("/served.ini", "<settings/>");
    Settings::MaxResource();
    EXPECT_EQ(GoodLoad("/served.ini"), CallsSoFar());
  });
}

TEST(AFirstLoad, ReplacesTheFileOfTheEnvironment) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", "/first.ini", 1);
    tests::ServeFile("/first.ini", "<settings><maxResource>1</maxResource></settings>");
    tests::ServeFile("/second.ini", "<settings><maxResource>2</maxResource></settings>");
    EXPECT_TRUE(Settings::LoadSettings("/second.ini"));
    EXPECT_EQ(2, Settings::MaxResource());
    EXPECT_EQ(Then(GoodLoad("/first.ini"), GoodLoad("/second.ini")), CallsSoFar());
  });
}

}  // namespace
}  // namespace analytics
