#include <ostream>
#include <set>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

IniFile Got(const std::string& pattern) {
  IniFile settings;
  TavrelSettingsClient(TavrelSettingsClient::kQuery).GetSettings(pattern, settings);
  return settings;
}

struct Row {
  const char* name;
  const char* pattern;
  std::set<std::string> groups;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"Name", "Imaging", {"Imaging"}},
    {"NameOfNone", "Image", {}},
    {"NameInOtherCase", "imaging", {}},
    {"Start", "Imaging*", {"Imaging", "Imaging/Mask", "Imaging/Mask/1", "Imaging2"}},
    {"StartBelow", "Imaging/*", {"Imaging/Mask", "Imaging/Mask/1"}},
    {"StartOfNone", "Sound*", {}},
    {"All", "*", {"Imaging", "Imaging/Mask", "Imaging/Mask/1", "Imaging2", "My Imaging"}},
    {"StarInTheMiddle", "Imaging/*/1", {}},
    {"StarAtTheStart", "*Imaging", {}},
    {"TwoStars", "Imaging**", {}},
    {"QuestionMark", "Imaging?", {}},
    {"Empty", "", {}},
};

class APattern : public tests::StoreTest, public testing::WithParamInterface<Row> {};

TEST_P(APattern, SelectsGroups) {
  Write("[Imaging]\n[Imaging/Mask]\n[Imaging/Mask/1]\n[Imaging2]\n[My Imaging]\n");
  const IniFile settings = Got(GetParam().pattern);
  std::set<std::string> groups;
  for (const auto& group : settings.AllGroups()) groups.insert(group.first);
  EXPECT_EQ(GetParam().groups, groups);
}

INSTANTIATE_TEST_SUITE_P(Rows, APattern, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

class GettingSettings : public tests::StoreTest {
 protected:
  const TavrelSettingsClient m_client{TavrelSettingsClient::kObserve};
  IniFile m_settings;
};

TEST_F(GettingSettings, GivesGroupsWithTheirKeys) {
  Write("[A]\nx=1\ny=\n[B]\n");
  m_client.GetSettings("*", m_settings);
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "1"}, {"y", ""}}}, {"B", {}}}), m_settings.AllGroups());
}

TEST_F(GettingSettings, ReplacesAllThatThePatternMatches) {
  Write("[A]\nx=1\n");
  m_settings.SetValue("A", "old", "1");
  m_settings.SetValue("A/old", "x", "1");
  m_client.GetSettings("A*", m_settings);
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "1"}}}}), m_settings.AllGroups());
}

TEST_F(GettingSettings, DropsWhatThePatternDoesNotMatch) {
  Write("[A]\nx=1\n[B]\ny=2\n");
  m_settings.SetValue("B", "own", "1");
  m_client.GetSettings("A", m_settings);
  EXPECT_EQ((IniFile::Groups{{"A", {{"x", "1"}}}}), m_settings.AllGroups());
}

TEST_F(GettingSettings, LeavesNoRemovalMarks) {
  m_settings.SetValue("A", "x", "1");
  m_settings.RemoveKey("B", "y");
  m_client.GetSettings("*", m_settings);
  EXPECT_THAT(m_settings.AllGroups(), IsEmpty());
  EXPECT_THAT(m_settings.RemovedGroups(), IsEmpty());
  EXPECT_THAT(m_settings.RemovedKeys(), IsEmpty());
}

TEST_F(GettingSettings, ReadsTheStoreAnewEachTime) {
  Write("[A]\nx=1\n");
  m_client.GetSettings("*", m_settings);
  Write("[A]\nx=2\n");
  m_client.GetSettings("*", m_settings);
  EXPECT_EQ(2, m_settings.GetIntOrDefault("A", "x", 0));
}

TEST_F(GettingSettings, ReportsAMalformedStoreAndLeavesTheSettingsAlone) {
  Write("[A]\nabc\n");
  m_settings.SetValue("A", "x", "1");
  EXPECT_THAT([this] { m_client.GetSettings("*", m_settings); },
              ThrowsMessage<std::runtime_error>(HasSubstr(Path() + ":2: ")));
  EXPECT_EQ(1, m_settings.GetIntOrDefault("A", "x", 0));
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
