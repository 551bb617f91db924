#include <cstdlib>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/settings/TextSettings.h"
#include "tests/support/MemoryTable.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::Answer;
using tests::ElementOf;

// Texts here are too long to be kept inside a string object, so that each copy needs memory.
const std::string kLong = "/a/text/that/is/too/long/to/be/kept/inside/a/string";
const std::string kPipes = "//userdataPipe";
const std::string kNumber = "//number";
const std::string kReferences = "${outer}|${undefined}|${outer}";
const std::string kNoReference = "a text without a reference to any variable";
const std::string kNone;

/// The stored value that belongs to a setting here: one of its own.
std::string LongValue(const tests::TextSetting& setting) {
  return kLong + "/" + setting.name + "/";
}

std::string FullContent() {
  std::string content = "<maxResource>50</maxResource><userdataPipe>/1" + kLong +
                        "</userdataPipe><userdataPipe>/2" + kLong + "</userdataPipe><number>12 " +
                        kLong + "</number><variables><variable name='outer' value='" + kLong +
                        "/${inner}'/><variable name='inner' value='" + kLong + "'/></variables>";
  for (const tests::TextSetting& setting : tests::kTextSettings) {
    content += ElementOf(setting.key, LongValue(setting));
  }
  return ElementOf("settings", content);
}

struct Files {
  const tests::TemporaryDirectory directory;
  const std::string whole = directory.Write("full.ini", FullContent());
  const std::string missing = directory.PathOf("missing.ini");
};

/// The settings of a full file, which are left without a document.
class SettingsSubject {
 public:
  SettingsSubject() { Reset(); }
  ~SettingsSubject() {
    Settings::LoadSettings(Shared().missing);
    setenv("ANALYTICS_INI", "/nonexistent/analytics.ini", 1);
  }

  void Reset() {
    setenv("ANALYTICS_INI", Shared().whole.c_str(), 1);
    EXPECT_TRUE(Settings::LoadSettings(Shared().whole));
  }

  /// "full" or, if some settings have the value of a file that lacks them, "lacking".
  std::string State() {
    m_state = "full";
    Compare("resource", std::to_string(Settings::MaxResource()), "50", "100000");
    Compare("number", std::to_string(Settings::GetValue(kNumber, 7)), "12", "7");
    Compare("pipes", Joined(Settings::UserDataPipes()), "/1" + kLong + "/2" + kLong,
            "/var/run/primary.h264UserData.pipe");
    for (const tests::TextSetting& setting : tests::kTextSettings) {
      Compare(setting.name, setting.operation(), LongValue(setting), "");
    }
    return m_state;
  }

  // One for all, because files take their time.
  static const Files& Shared() {
    static const Files s_files;
    return s_files;
  }

 private:
  void Compare(const std::string& name, const std::string& value, const std::string& full,
               const std::string& lacking) {
    if (value == full) return;
    const bool isLacking = value == lacking || (name == "pipes" && value == "/1" + kLong) ||
                           (name == "pipes" && value == "/2" + kLong);
    m_state = isLacking ? "lacking" : name + " is " + value;
  }

  static std::string Joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) all += text;
    return all;
  }

  std::string m_state;
};

using S = SettingsSubject;

/// The settings were taken from a file some of whose elements could not be read.
const std::vector<std::string> kLacking = {"lacking"};
const std::string kFirstPipe = "/1" + kLong;
const std::string kSecondPipe = "/2" + kLong;

template <std::size_t kIndex>
Answer TextAt(S& /*settings*/) {
  return tests::kTextSettings[kIndex].operation();
}

const std::string kSubstituted = kLong + "/" + kLong;

const tests::MemoryRow<SettingsSubject> kRows[] = {
    {"MaxResource", [](S&) -> Answer { return Settings::MaxResource(); }, "50"},
    {"UserDataPipes", [](S&) -> Answer { return Settings::UserDataPipes(); },
     "['" + kFirstPipe + "''" + kSecondPipe + "']"},
    {"GetText",
     [](S&) -> Answer { return Settings::GetValue(kPipes); },
     "'" + kFirstPipe + "'",
     {"''"}},
    {"GetInteger", [](S&) -> Answer { return Settings::GetValue(kNumber, 7); }, "12", {"7"}},
    {"GetTexts",
     [](S&) -> Answer { return Settings::GetValues(kPipes); },
     "['" + kFirstPipe + "''" + kSecondPipe + "']",
     // A node whose text cannot be made is passed over, as one without text is.
     {"[]", "['" + kFirstPipe + "']", "['" + kSecondPipe + "']"}},
    {"SubstituteVariables",
     [](S&) -> Answer { return Settings::SubstituteVariables(kReferences); },
     "'" + kSubstituted + "||" + kSubstituted + "'",
     // A variable whose value cannot be read is replaced by nothing, as an undefined one is.
     {"'||'", "'||" + kSubstituted + "'", "'" + kSubstituted + "||'",
      "'" + kLong + "/||" + kSubstituted + "'", "'" + kSubstituted + "||" + kLong + "/'",
      "'" + kLong + "/||'", "'||" + kLong + "/'"}},
    {"SubstituteNothing", [](S&) -> Answer { return Settings::SubstituteVariables(kNoReference); },
     "'" + kNoReference + "'"},
    {"LoadSettings",
     [](S&) -> Answer { return Settings::LoadSettings(S::Shared().whole); },
     "true",
     {"false"},
     {},
     kLacking},
    {"LoadSettingsOfTheEnvironment",
     [](S&) -> Answer { return Settings::LoadSettings(kNone); },
     "true",
     {"false"},
     {},
     kLacking},
    {"LoadAMissingFile",
     [](S&) -> Answer { return Settings::LoadSettings(S::Shared().missing); },
     "false",
     {},
     "lacking"},
};

using SettingsMemoryTest = tests::MemoryTableTest<SettingsSubject>;

TEST_P(SettingsMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(SettingsMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, SettingsMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<SettingsSubject>);

/// Whether one text setting has a value of the one file and another that of the other.
bool IsMixed() {
  const bool isNew = Settings::ProfileTag() == "new" + kLong;
  return (Settings::OnvifPrefix() == "new" + kLong) != isNew;
}

/// The settings' first and last text, of one file.
std::string FirstAndLastText(const std::string& text) {
  return ElementOf("settings",
                   ElementOf("tags/profile", text) + ElementOf("namespaces/onvif/prefix", text));
}

TEST(ALoadWithoutMemory, CanLeaveSettingsOfTwoFiles) {
  if (!tests::FailingAllocation::IsPossible()) GTEST_SKIP() << "the sanitizer's own operator new";
  const tests::TemporaryDirectory directory;
  const std::string file = directory.Write("new.ini", FirstAndLastText("new" + kLong));
  ASSERT_TRUE(tests::LoadText(FirstAndLastText("old" + kLong)));
  bool wasMixed = false;
  tests::WithEachAllocationFailing(tests::Shortage::kOnce, [&] {
    wasMixed = wasMixed || IsMixed();
    Settings::LoadSettings(file);
  });
  EXPECT_TRUE(wasMixed);
  EXPECT_FALSE(IsMixed());
}

/// The rows of the stored texts, one for each setting.
template <std::size_t... kIndices>
std::vector<tests::MemoryRow<SettingsSubject>> TextRows(std::index_sequence<kIndices...> /*all*/) {
  return {{tests::kTextSettings[kIndices].name, TextAt<kIndices>,
           "'" + LongValue(tests::kTextSettings[kIndices]) + "'"}...};
}

constexpr std::size_t kTexts = std::size(tests::kTextSettings);

INSTANTIATE_TEST_SUITE_P(Texts, SettingsMemoryTest,
                         testing::ValuesIn(TextRows(std::make_index_sequence<kTexts>())),
                         tests::MemoryRowName<SettingsSubject>);

}  // namespace
}  // namespace analytics
