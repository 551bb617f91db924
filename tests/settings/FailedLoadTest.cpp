#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/LoadMessages.h"
#include "tests/settings/SettingsText.h"
#include "tests/settings/TextSettings.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum class Kind { kFile, kDirectory, kMissing };

struct FailingFile {
  const char* name;
  Kind kind;
  const char* text;
};

void PrintTo(const FailingFile& file, std::ostream* out) { *out << file.name; }

const FailingFile kFailingFiles[] = {
    {"Missing", Kind::kMissing, ""},
    {"Directory", Kind::kDirectory, ""},
    {"Empty", Kind::kFile, ""},
    {"Blank", Kind::kFile, " \n"},
    {"NotXml", Kind::kFile, "maxResource=5\n"},
    {"RootNotClosed", Kind::kFile, "<settings><maxResource>5</maxResource>"},
    {"TwoRoots", Kind::kFile, "<settings/><settings/>"},
    {"TextAfterRoot", Kind::kFile, "<settings><maxResource>5</maxResource></settings>x"},
    {"UndeclaredEntity", Kind::kFile, "<settings><maxResource>5</maxResource>&none;</settings>"},
    {"EndingInATag", Kind::kFile, "<settings><maxResource>5</maxResource"},
};

/// A file that cannot be parsed, loaded after one that can.
class AFailedLoad : public testing::TestWithParam<FailingFile> {
 protected:
  AFailedLoad() {
    if (GetParam().kind == Kind::kFile) m_directory.Write("failing.ini", GetParam().text);
    if (GetParam().kind == Kind::kDirectory) std::filesystem::create_directory(Path());
  }

  /// Loads settings with the sample values and variable "a", then the failing file.
  bool LoadGoodThenFailing() const {
    std::string good =
        "<maxResource>50</maxResource><userdataPipe>/pipe</userdataPipe>"
        "<variables><variable name='a' value='b'/></variables>";
    for (const tests::TextSetting& setting : tests::kTextSettings) {
      good += tests::ElementOf(setting.key, setting.sample);
    }
    EXPECT_TRUE(tests::LoadContent(good));
    fakes::CallLog::Instance().Clear();
    return Settings::LoadSettings(Path());
  }

  std::string Path() const { return m_directory.PathOf("failing.ini"); }

 private:
  const tests::TemporaryDirectory m_directory;
};

TEST_P(AFailedLoad, AnswersFalseAndReportsItsPath) {
  tests::InFreshProcess([this] {
    EXPECT_FALSE(LoadGoodThenFailing());
    EXPECT_EQ(tests::FailedLoad(Path()), tests::CallsSoFar());
  });
}

TEST_P(AFailedLoad, KeepsEveryStoredSetting) {
  tests::InFreshProcess([this] {
    LoadGoodThenFailing();
    EXPECT_EQ(50, Settings::MaxResource());
    EXPECT_THAT(Settings::UserDataPipes(), ElementsAre("/pipe"));
    for (const tests::TextSetting& setting : tests::kTextSettings) {
      EXPECT_EQ(setting.sample, setting.operation()) << setting.name;
    }
  });
}

TEST_P(AFailedLoad, LeavesNothingForTheFreeQueriesToFind) {
  tests::InFreshProcess([this] {
    LoadGoodThenFailing();
    EXPECT_EQ(5, Settings::GetValue("//maxResource", 5));
    EXPECT_EQ("", Settings::GetValue("//maxResource"));
    EXPECT_THAT(Settings::GetValues("//userdataPipe"), IsEmpty());
    EXPECT_EQ("-", Settings::SubstituteVariables("${a}-"));
  });
}

TEST_P(AFailedLoad, IsMadeGoodByTheNextFile) {
  tests::InFreshProcess([this] {
    LoadGoodThenFailing();
    EXPECT_TRUE(tests::LoadContent("<maxResource>60</maxResource>"));
    EXPECT_EQ(60, Settings::MaxResource());
    EXPECT_EQ(60, Settings::GetValue("//maxResource", 5));
  });
}

TEST_P(AFailedLoad, AtFirstUseLeavesTheBuiltInValues) {
  tests::InFreshProcess([this] {
    setenv("ANALYTICS_INI", Path().c_str(), 1);
    EXPECT_EQ(100000, Settings::MaxResource());
    EXPECT_THAT(Settings::UserDataPipes(), IsEmpty());
    EXPECT_EQ("/usr/local/kestal/analytics/plugins/", Settings::PluginRepository());
    EXPECT_EQ(5, Settings::GetValue("//maxResource", 5));
    EXPECT_EQ(tests::FailedLoad(Path()), tests::CallsSoFar());
  });
}

INSTANTIATE_TEST_SUITE_P(Files, AFailedLoad, testing::ValuesIn(kFailingFiles),
                         testing::PrintToStringParamName());

TEST(ASecondFailedLoad, StillKeepsTheValuesOfTheLastGoodFile) {
  tests::InFreshProcess([] {
    ASSERT_TRUE(tests::LoadContent("<maxResource>50</maxResource>"));
    EXPECT_FALSE(tests::LoadText("broken"));
    EXPECT_FALSE(tests::LoadText("broken again"));
    EXPECT_EQ(50, Settings::MaxResource());
  });
}

}  // namespace
}  // namespace analytics
