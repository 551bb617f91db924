#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  const char* text;
  const char* expected;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"WithoutSlash", "/opt/plugins", "/opt/plugins/"},
    {"WithSlash", "/opt/plugins/", "/opt/plugins/"},
    {"WithTwoSlashes", "/opt/plugins//", "/opt/plugins//"},
    {"SlashAlone", "/", "/"},
    {"Relative", "plugins", "plugins/"},
    {"OneLetter", "p", "p/"},
    {"Empty", "", ""},
    {"Blank", " ", " /"},
    {"BlankAfterSlash", "/opt/ ", "/opt/ /"},
    {"Backslash", "\\opt\\", "\\opt\\/"},
};

class ThePluginRepository : public testing::TestWithParam<Row> {};

TEST_P(ThePluginRepository, EndsInASlashUnlessItIsEmpty) {
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("pluginRepository", GetParam().text)));
  EXPECT_EQ(GetParam().expected, Settings::PluginRepository());
}

TEST_P(ThePluginRepository, IsGivenToAQueryAsItStandsInTheFile) {
  ASSERT_TRUE(tests::LoadContent(tests::ElementOf("pluginRepository", GetParam().text)));
  EXPECT_EQ(GetParam().text, Settings::GetValue("//pluginRepository"));
}

INSTANTIATE_TEST_SUITE_P(Rows, ThePluginRepository, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

TEST(AnotherDirectory, GainsNoSlash) {
  ASSERT_TRUE(tests::LoadContent("<quadOutputFile>/opt/quad</quadOutputFile>"));
  EXPECT_EQ("/opt/quad", Settings::QuadOutputFile());
}

}  // namespace
}  // namespace analytics
