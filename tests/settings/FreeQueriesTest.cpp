#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr char kFile[] =
    "<settings xmlns:v='urn:example'>"
    "<resource unit='percent' share='50'>40</resource>"
    "<item>first</item><item/><item>2nd</item><item> </item>"
    "<group><item>deep</item></group>"
    "<number>12px</number>"
    "<v:vendor>secret</v:vendor>"
    "<!-- remark -->"
    "</settings>";

/// Text with NULs in it, which end an expression.
template <std::size_t size>
std::string WithNul(const char (&text)[size]) {
  return std::string(text, size - 1);
}

struct Query {
  const char* name;
  std::string xpath;
  std::string text;  // of the first node
  Texts texts;       // of all nodes
  int number;        // 7 is the default given
};

void PrintTo(const Query& query, std::ostream* out) { *out << query.name; }

const Query kFound[] = {
    {"AnyDepth", "//item", "first", {"first", "2nd", " ", "deep"}, 0},
    {"Relative", "item", "first", {"first", "2nd", " "}, 0},
    {"RelativeToRootElement", "group/item", "deep", {"deep"}, 0},
    {"Absolute", "/settings/number", "12px", {"12px"}, 12},
    {"Attribute", "//resource/@share", "50", {"50"}, 50},
    {"AllAttributes", "//@*", "percent", {"percent", "50"}, 0},
    {"ByAttribute", "//resource[@unit='percent']", "40", {"40"}, 40},
    {"ByPosition", "//item[3]", "2nd", {"2nd"}, 2},
    {"EmptyElement", "/settings/item[2]", "", {}, 7},
    {"BlankElement", "/settings/item[4]", " ", {" "}, 7},
    {"UnionInDocumentOrder", "//number | //resource", "40", {"40", "12px"}, 40},
    {"LocalName", "//*[local-name()='vendor']", "secret", {"secret"}, 0},
    {"UpToItsFirstNul", WithNul("//number\0[[[\0"), "12px", {"12px"}, 12},
};

const Query kNothing[] = {
    {"Missing", "//missing", "", {}, 7},
    {"MissingAttribute", "//resource/@missing", "", {}, 7},
    {"RootElementWithoutText", "/settings", "", {}, 7},
    {"DocumentNode", "/", "", {}, 7},
    {"TextNode", "//number/text()", "", {}, 7},
    {"Comment", "//comment()", "", {}, 7},
    {"NamespaceNode", "//namespace::v", "", {}, 7},
    {"NameWithoutItsNamespace", "//vendor", "", {}, 7},
    {"Prefix", "//v:vendor", "", {}, 7},
    {"PrefixWildcard", "//v:*", "", {}, 7},
    {"ProfilePrefixes", "//tt:item | //ka:item", "", {}, 7},
    {"Count", "count(//item)", "", {}, 7},
    {"StringResult", "string(//number)", "", {}, 7},
    {"Literal", "'12'", "", {}, 7},
    {"BooleanResult", "true()", "", {}, 7},
    {"Empty", "", "", {}, 7},
    {"Blank", " ", "", {}, 7},
    {"NulFirst", WithNul("\0//number"), "", {}, 7},
    {"Incomplete", "//item[", "", {}, 7},
    {"NotXPath", "!", "", {}, 7},
    {"TextAfterExpression", "//number )", "", {}, 7},
    {"UnknownFunction", "unknown()", "", {}, 7},
    {"UnknownVariable", "$unknown", "", {}, 7},
};

class AFreeQuery : public testing::TestWithParam<Query> {
 protected:
  void SetUp() override { ASSERT_TRUE(tests::LoadText(kFile)); }
};

TEST_P(AFreeQuery, GivesTheTextOfTheFirstNode) {
  EXPECT_EQ(GetParam().text, Settings::GetValue(GetParam().xpath));
}

TEST_P(AFreeQuery, GivesTheNumberOfTheFirstNodeOrTheDefault) {
  EXPECT_EQ(GetParam().number, Settings::GetValue(GetParam().xpath, 7));
}

TEST_P(AFreeQuery, GivesTheTextsThatAreNotEmpty) {
  EXPECT_EQ(GetParam().texts, Settings::GetValues(GetParam().xpath));
}

INSTANTIATE_TEST_SUITE_P(Found, AFreeQuery, testing::ValuesIn(kFound),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Nothing, AFreeQuery, testing::ValuesIn(kNothing),
                         testing::PrintToStringParamName());

TEST(TheFreeQueries, StartAtTheRootElementEachTime) {
  ASSERT_TRUE(tests::LoadText("<a><b><c>1</c></b><c>2</c></a>"));
  EXPECT_EQ(1, Settings::GetValue("b/c", 7));
  EXPECT_EQ("2", Settings::GetValue("c"));
  EXPECT_THAT(Settings::GetValues("b/c"), ElementsAre("1"));
}

TEST(TheFreeQueries, ResolveTheEntitiesThatTheFileDeclares) {
  ASSERT_TRUE(tests::LoadText("<!DOCTYPE a [<!ENTITY e '12'>]><a><b>&e;3</b></a>"));
  EXPECT_EQ("123", Settings::GetValue("//b"));
}

TEST(TheFreeQueries, PutInEntitiesHoweverOftenTheyAreNamed) {
  std::string references;
  for (int count = 0; count < 200; ++count) references += "&e;";
  ASSERT_TRUE(tests::LoadText("<!DOCTYPE a [<!ENTITY e '" + std::string(1000, 'x') + "'>]><a><b>" +
                              references + "</b><quadOutputFile>" + references +
                              "</quadOutputFile></a>"));
  EXPECT_EQ(std::string(200000, 'x'), Settings::GetValue("//b"));
  EXPECT_EQ(std::string(200000, 'x'), Settings::QuadOutputFile());
}

TEST(TheFreeQueries, KnowNoPrefixButThatOfXmlItself) {
  ASSERT_TRUE(tests::LoadText("<a xml:lang='en' xmlns:v='urn:v' v:b='1'/>"));
  EXPECT_EQ("en", Settings::GetValue("//@xml:lang"));
  EXPECT_EQ("", Settings::GetValue("//@v:b"));
}

TEST(TheFreeQueries, AnswerFromTheFileAndNotFromTheStoredSettings) {
  ASSERT_TRUE(tests::LoadContent("<pluginRepository>/opt</pluginRepository>"));
  EXPECT_EQ("/opt/", Settings::PluginRepository());
  EXPECT_EQ("/opt", Settings::GetValue("//pluginRepository"));
  EXPECT_EQ(100000, Settings::MaxResource());
  EXPECT_EQ(7, Settings::GetValue("//maxResource", 7));
}

TEST(TheFreeQueries, FindNothingOfTheFileBefore) {
  ASSERT_TRUE(tests::LoadContent("<a>1</a>"));
  ASSERT_TRUE(tests::LoadContent("<b>2</b>"));
  EXPECT_EQ("", Settings::GetValue("//a"));
  EXPECT_EQ("2", Settings::GetValue("//b"));
}

TEST(TheTextsOfAFreeQuery, OnceReturnedDoNotChangeWithALaterLoad) {
  ASSERT_TRUE(tests::LoadContent("<a>1</a>"));
  const std::string& text = Settings::GetValue("//a");
  const Texts& texts = Settings::GetValues("//a");
  ASSERT_TRUE(tests::LoadContent("<a>2</a>"));
  EXPECT_EQ("1", text);
  EXPECT_THAT(texts, ElementsAre("1"));
}

TEST(AFreeQueryAfterAFailedLoad, FindsNothingWhileTheStoredSettingsStay) {
  ASSERT_TRUE(tests::LoadContent("<maxResource>50</maxResource>"));
  ASSERT_FALSE(tests::LoadText("<settings>"));
  EXPECT_EQ(5, Settings::GetValue("//maxResource", 5));
  EXPECT_EQ("", Settings::GetValue("//maxResource"));
  EXPECT_THAT(Settings::GetValues("//maxResource"), IsEmpty());
  EXPECT_EQ(50, Settings::MaxResource());
}

}  // namespace
}  // namespace analytics
