#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/settings/TextSettings.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::ElementOf;
using tests::WithEachAllocationFailing;

// Texts here are too long to be kept inside a string object, so that each copy needs memory.
constexpr char kLong[] = "/a/text/that/is/too/long/to/be/kept/inside/a/string";

/// The stored value that belongs to a setting here: one of its own.
std::string LongValue(const tests::TextSetting& setting) {
  return std::string(kLong) + "/" + setting.name + "/";
}

std::string FullContent() {
  std::string content = "<maxResource>50</maxResource><userdataPipe>/1" + std::string(kLong) +
                        "</userdataPipe><userdataPipe>/2" + kLong + "</userdataPipe><number>12 " +
                        kLong + "</number><variables><variable name='outer' value='" + kLong +
                        "/${inner}'/><variable name='inner' value='" + kLong + "'/></variables>";
  for (const tests::TextSetting& setting : tests::kTextSettings) {
    content += ElementOf(setting.key, LongValue(setting));
  }
  return ElementOf("settings", content);
}

/// Settings of a full file in a process whose memory runs out.
class SettingsWithoutMemory : public testing::Test {
 protected:
  SettingsWithoutMemory() : m_fullFile(m_directory.Write("full.ini", FullContent())) {}

  void SetUp() override { ASSERT_TRUE(Settings::LoadSettings(m_fullFile)); }

  static void ExpectFullSettings() {
    EXPECT_EQ(50, Settings::MaxResource());
    EXPECT_THAT(Settings::UserDataPipes(),
                ElementsAre(std::string("/1") + kLong, std::string("/2") + kLong));
    for (const tests::TextSetting& setting : tests::kTextSettings) {
      EXPECT_EQ(LongValue(setting), setting.operation()) << setting.name;
    }
  }

  const tests::TemporaryDirectory m_directory;
  const std::string m_fullFile;
};

TEST_F(SettingsWithoutMemory, GiveEveryTextOnceThereIsMemory) {
  for (const tests::TextSetting& setting : tests::kTextSettings) {
    std::string text;
    WithEachAllocationFailing([&] { text = setting.operation(); });
    EXPECT_EQ(LongValue(setting), text) << setting.name;
  }
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, GiveTheUserDataPipesOnceThereIsMemory) {
  std::vector<std::string> pipes;
  WithEachAllocationFailing([&] { pipes = Settings::UserDataPipes(); });
  EXPECT_THAT(pipes, ElementsAre(std::string("/1") + kLong, std::string("/2") + kLong));
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, AnswerATextQueryOnceThereIsMemory) {
  const std::string query = "//userdataPipe";
  std::string text;
  WithEachAllocationFailing([&] { text = Settings::GetValue(query); });
  EXPECT_EQ(std::string("/1") + kLong, text);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, AnswerANumberQueryOnceThereIsMemory) {
  const std::string query = "//number";
  int number = 0;
  WithEachAllocationFailing([&] { number = Settings::GetValue(query, 7); });
  EXPECT_EQ(12, number);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, AnswerAListQueryOnceThereIsMemory) {
  const std::string query = "//userdataPipe";
  std::vector<std::string> texts;
  WithEachAllocationFailing([&] { texts = Settings::GetValues(query); });
  EXPECT_THAT(texts, ElementsAre(std::string("/1") + kLong, std::string("/2") + kLong));
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, SubstituteVariablesOnceThereIsMemory) {
  const std::string text = "${outer}|${undefined}|${outer}";
  std::string substituted;
  WithEachAllocationFailing([&] { substituted = Settings::SubstituteVariables(text); });
  const std::string value = std::string(kLong) + "/" + kLong;
  EXPECT_EQ(value + "||" + value, substituted);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, LoadTheSameFileAgainOnceThereIsMemory) {
  bool isLoaded = false;
  WithEachAllocationFailing([&] { isLoaded = Settings::LoadSettings(m_fullFile); });
  EXPECT_TRUE(isLoaded);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, LoadAFullFileAfterAnEmptyOneOnceThereIsMemory) {
  ASSERT_TRUE(tests::LoadText("<settings/>"));
  bool isLoaded = false;
  WithEachAllocationFailing([&] { isLoaded = Settings::LoadSettings(m_fullFile); });
  EXPECT_TRUE(isLoaded);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, LoadAnEmptyFileAfterAFullOneOnceThereIsMemory) {
  const std::string path = m_directory.Write("empty.ini", "<settings/>");
  WithEachAllocationFailing([&] { Settings::LoadSettings(path); });
  EXPECT_EQ(100000, Settings::MaxResource());
  EXPECT_THAT(Settings::UserDataPipes(), ElementsAre("/var/run/primary.h264UserData.pipe"));
  for (const tests::TextSetting& setting : tests::kTextSettings) {
    EXPECT_EQ("", setting.operation()) << setting.name;
  }
}

TEST_F(SettingsWithoutMemory, LoadTheFileOfTheEnvironmentOnceThereIsMemory) {
  ASSERT_TRUE(tests::LoadText("<settings/>"));
  setenv("ANALYTICS_INI", m_fullFile.c_str(), 1);
  const std::string none;
  bool isLoaded = false;
  WithEachAllocationFailing([&] { isLoaded = Settings::LoadSettings(none); });
  setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1);
  EXPECT_TRUE(isLoaded);
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, KeepTheirValuesWhenAFileIsMissing) {
  const std::string path = m_directory.PathOf("missing.ini");
  bool isLoaded = true;
  WithEachAllocationFailing([&] { isLoaded = Settings::LoadSettings(path); });
  EXPECT_FALSE(isLoaded);
  EXPECT_THAT(Settings::GetValues("//userdataPipe"), IsEmpty());
  ExpectFullSettings();
}

TEST_F(SettingsWithoutMemory, AnswerEvenAfterALoadThatWasBrokenOff) {
  const std::string path = m_directory.Write("other.ini", FullContent());
  const std::string query = "//maxResource";
  WithEachAllocationFailing([&] {
    const int found = Settings::GetValue(query, 7);
    EXPECT_TRUE(found == 50 || found == 7) << found;
    EXPECT_EQ(50, Settings::MaxResource());
    Settings::LoadSettings(path);
  });
  ExpectFullSettings();
}

}  // namespace
}  // namespace analytics
