#include <cstdint>
#include <cstdio>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/TextSettings.h"
#include "tests/support/DamagedText.h"
#include "tests/support/Figures.h"
#include "tests/support/PlainTree.h"
#include "tests/support/SampleFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlAllocations.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::IsEmpty;

/// What the settings are to be, read from a tree by walking through it.
class Reading {
 public:
  explicit Reading(xmlDoc& tree) : m_all(tests::ElementsOf(tree)) {}

  /// Text of the first element at a path such as "tags/rule", wherever that starts.
  std::string Text(const std::string& path) const {
    for (const xmlNodePtr element : m_all) {
      if (EndsIn(element, path)) return tests::OwnText(element->children);
    }
    return "";
  }

  std::vector<std::string> Texts(const std::string& name) const {
    std::vector<std::string> texts;
    for (const xmlNodePtr element : tests::Named(m_all, "", name)) {
      texts.push_back(tests::OwnText(element->children));
    }
    return tests::WithoutEmpty(texts);
  }

  /// The value of the first variable of this name that has one.
  std::string Variable(const std::string& name) const {
    for (const xmlNodePtr element : m_all) {
      const xmlAttr* itsName = tests::PlainAttribute(element, "name");
      const xmlAttr* value = tests::PlainAttribute(element, "value");
      if (!itsName || !value || !EndsIn(element, "variables/variable")) continue;
      if (tests::OwnText(itsName->children) == name) return tests::OwnText(value->children);
    }
    return "";
  }

 private:
  static bool EndsIn(xmlNodePtr element, const std::string& path) {
    const std::string::size_type slash = path.rfind('/');
    if (!tests::Is(element, "", path.substr(slash + 1))) return false;
    return slash == std::string::npos || EndsIn(element->parent, path.substr(0, slash));
  }

  const std::vector<xmlNodePtr> m_all;
};

/// The stored settings of the last file that could be parsed.
struct Stored {
  explicit Stored(const Reading& file)
      : maxResource(tests::LeadingInt(file.Text("maxResource"), 100000)),
        pipes(file.Texts("userdataPipe")) {
    for (const tests::TextSetting& setting : tests::kTextSettings) {
      texts.push_back(file.Text(setting.key));
    }
    std::string& plugins = texts.front();
    if (!plugins.empty() && plugins.back() != '/') plugins += '/';
    if (pipes.empty()) pipes.emplace_back("/var/run/primary.h264UserData.pipe");
  }

  std::int64_t maxResource;
  std::vector<std::string> texts;  // in the order of kTextSettings
  std::vector<std::string> pipes;
};

void ExpectStored(const Stored& expected) {
  EXPECT_EQ(expected.maxResource, Settings::MaxResource());
  EXPECT_EQ(expected.pipes, Settings::UserDataPipes());
  std::vector<std::string> texts;
  for (const tests::TextSetting& setting : tests::kTextSettings) {
    texts.push_back(setting.operation());
  }
  EXPECT_EQ(expected.texts, texts);
}

void ExpectQueries(const Reading& file) {
  EXPECT_EQ(tests::LeadingInt(file.Text("maxSessions"), 7), Settings::GetValue("//maxSessions", 7));
  EXPECT_EQ(file.Text("videoInputFile"), Settings::GetValue("//videoInputFile"));
  EXPECT_EQ(file.Texts("userdataPipe"), Settings::GetValues("//userdataPipe"));
  EXPECT_EQ("<" + file.Variable("site") + ">", Settings::SubstituteVariables("<${site}>"));
}

void ExpectNoQueries() {
  EXPECT_EQ(7, Settings::GetValue("//maxSessions", 7));
  EXPECT_EQ("", Settings::GetValue("//*"));
  EXPECT_THAT(Settings::GetValues("//*"), IsEmpty());
  EXPECT_EQ("<>", Settings::SubstituteVariables("<${site}>"));
}

/// A settings file that comes with the sources, loaded with one fault after another.
class ADamagedSettingsFile : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    // What libxml2 makes once, at its first use, is no leak; nor is the document of a good load.
    ASSERT_TRUE(Settings::LoadSettings(tests::SamplePath(GetParam())));
    ASSERT_FALSE(Settings::LoadSettings("/dev/null"));
    m_aliveWhileClosed = tests::XmlAllocations::Alive();
    ASSERT_TRUE(Settings::LoadSettings(tests::SamplePath(GetParam())));
    m_stored.emplace(Reading(*tests::ParsedAlone(m_text)));
  }

  /// Loads one text and compares; after a first failure it does no more.
  void CheckText(const std::string& text, const std::string& damage) {
    if (HasFailure()) return;
    SCOPED_TRACE(damage);
    Write(text);
    const tests::TreePtr alone = tests::ParsedAlone(text);
    ASSERT_EQ(alone != nullptr, Settings::LoadSettings(m_path));
    alone ? ExpectTaken(Reading(*alone)) : ExpectNothingTaken();
    ExpectStored(*m_stored);
  }

  const tests::DamageCheck m_check = [this](const auto& text, const auto& damage) {
    CheckText(text, damage);
  };
  const std::string m_text = tests::SampleText(GetParam());

 private:
  /// Makes the file anew: some file systems write at once what replaces the text of a file.
  void Write(const std::string& text) const {
    std::remove(m_path.c_str());
    std::ofstream(m_path, std::ios::binary) << text;
  }

  void ExpectTaken(const Reading& file) {
    m_stored.emplace(file);
    ExpectQueries(file);
  }

  void ExpectNothingTaken() const {
    ExpectNoQueries();
    EXPECT_EQ(m_aliveWhileClosed, tests::XmlAllocations::Alive()) << "not released";
  }

  const tests::XmlErrors m_quiet;
  const tests::XmlAllocations m_allocations;
  const tests::TemporaryDirectory m_directory;
  const std::string m_path = m_directory.PathOf("analytics.ini");
  std::optional<Stored> m_stored;
  long m_aliveWhileClosed = 0;
};

TEST_P(ADamagedSettingsFile, IsLoadedOrKeepsWhatIsStoredWhereverItIsCut) {
  tests::Count("settings_truncations", tests::ForEachTruncation(m_text, m_check));
}

TEST_P(ADamagedSettingsFile, IsLoadedOrKeepsWhatIsStoredWhicheverByteIsReplaced) {
  tests::Count("settings_replaced_bytes", tests::ForEachReplacedByte(m_text, m_check));
}

INSTANTIATE_TEST_SUITE_P(Samples, ADamagedSettingsFile, testing::ValuesIn(tests::kSettingsFiles),
                         [](const auto& row) { return tests::SampleName(row.param); });

}  // namespace
}  // namespace analytics
