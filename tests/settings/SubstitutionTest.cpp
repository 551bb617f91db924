#include <ostream>
#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

constexpr char kFile[] = R"(<settings>
  <variable name="outside" value="wrong"/>
  <deep><deeper><variables>
    <variable name="dir" value="/tmp"/>
    <variable name="dir" value="/second"/>
    <variable name="outer" value="${inner}"/>
    <variable name="inner" value="x"/>
    <variable name="around" value="[${outer}|${outer}]"/>
    <variable name="empty" value=""/>
    <variable name="blank" value=" "/>
    <variable name="valueless"/>
    <variable name="element">text</variable>
    <variable name="two words" value="2"/>
    <variable name="it's" value="quoted"/>
    <variable name="say &quot;hi&quot;" value="wrong"/>
    <variable name="a]b" value="bracket"/>
    <variable name="a&amp;b" value="ampersand"/>
    <variable name="größe" value="Ä"/>
    <variable name="$" value="sign"/>
    <variable name="dollar" value="$"/>
    <variable name="start" value="${"/>
    <variable name="end" value="}"/>
    <variable name="stop" value="${}"/>
    <group><variable name="nested" value="wrong"/></group>
    <v:variable xmlns:v="urn:example" name="vendor" value="wrong"/>
    <variable xmlns:v="urn:example" v:name="nameless" value="wrong"/>
    <variable xmlns:v="urn:example" name="vendorValue" v:value="wrong"/>
    <other name="other" value="wrong"/>
  </variables></deeper></deep>
  <variables><variable name="later" value="found"/></variables>
  <secret>42</secret>
</settings>)";

struct Row {
  const char* name;
  std::string text;
  std::string expected;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kReferences[] = {
    {"ReferenceAlone", "${dir}", "/tmp"},
    {"TextAfter", "${dir}/a", "/tmp/a"},
    {"TextBefore", "a/${dir}", "a//tmp"},
    {"Twice", "${dir}${dir}", "/tmp/tmp"},
    {"Several", "<${dir}> <${inner}> <${dir}>", "</tmp> <x> </tmp>"},
    {"ValueIsAReference", "${outer}", "x"},
    {"ValueHoldsReferencesToReferences", "${around}", "[x|x]"},
    {"EmptyValue", "a${empty}b", "ab"},
    {"BlankValue", "a${blank}b", "a b"},
    {"Undefined", "${missing}/a", "/a"},
    {"UndefinedAmongDefined", "${dir}${missing}${dir}", "/tmp/tmp"},
    {"WithoutValueAttribute", "a${valueless}b", "ab"},
    {"ValueAsElementText", "a${element}b", "ab"},
    {"SecondVariablesElement", "${later}", "found"},
    {"OutsideVariables", "a${outside}b", "ab"},
    {"DeeperInVariables", "a${nested}b", "ab"},
    {"InANamespace", "a${vendor}b", "ab"},
    {"NameInANamespace", "a${nameless}b", "ab"},
    {"ValueInANamespace", "a${vendorValue}b", "ab"},
    {"OfOtherElement", "a${other}b", "ab"},
};

const Row kNames[] = {
    {"InOtherCase", "a${DIR}b", "ab"},
    {"BeginningOfAName", "a${di}b", "ab"},
    {"NameWithBlank", "${two words}", "2"},
    {"BlanksAroundNameCount", "a${ dir }b", "ab"},
    {"BlankAsName", "a${ }b", "ab"},
    {"SingleQuote", "${it's}", "quoted"},
    {"DoubleQuotesDoNotEvaluate", "a${say \"hi\"}b", "ab"},
    {"OneDoubleQuoteDoesNotEvaluate", "a${\"}${dir}", "a/tmp"},
    {"DoubleQuotesThatCompleteTheQuery", "${none\" or @name=\"inner}", "x"},
    {"DoubleQuotesThatReadAnyElement", "${x\"] | //secret | //x[@y=\"}", "42"},
    {"Bracket", "${a]b}", "bracket"},
    {"Ampersand", "${a&b}", "ampersand"},
    {"EntityIsNotResolved", "a${a&amp;b}b", "ab"},
    {"NotAscii", "${größe}", "Ä"},
    {"DollarAsName", "${$}", "sign"},
    {"NulEndsTheQuery", std::string("a${dir\0}b", 9), "ab"},
    {"NameRunsToTheFirstBrace", "${a${dir}}", "}"},
    {"NameHoldsAStartOfReference", "${dir${", "${dir${"},
};

const Row kUnchanged[] = {
    {"Empty", "", ""},
    {"PlainText", "/tmp/a", "/tmp/a"},
    {"DollarAlone", "$", "$"},
    {"DollarWithoutBrace", "$dir", "$dir"},
    {"BraceWithoutDollar", "{dir}", "{dir}"},
    {"BlankBetween", "$ {dir}", "$ {dir}"},
    {"StartAlone", "${", "${"},
    {"EndAlone", "}", "}"},
    {"EndBeforeStart", "}${", "}${"},
    {"Unclosed", "${dir", "${dir"},
    {"EmptyName", "${}", "${}"},
    {"EmptyNameStopsAll", "${}${dir}", "${}${dir}"},
    {"OtherBrackets", "$(dir)$[dir]", "$(dir)$[dir]"},
    {"NulInPlainText", std::string("a\0b", 3), std::string("a\0b", 3)},
};

const Row kStops[] = {
    {"EmptyNameStopsTheRest", "${dir}${}${dir}", "/tmp${}${dir}"},
    {"UnclosedAfterReference", "${dir}${dir", "/tmp${dir"},
    {"ValueWithEmptyNameStopsTheRest", "${stop}${dir}", "${}${dir}"},
    {"EndBeforeReference", "}${dir}", "}/tmp"},
    {"EndAfterReference", "${dir}}", "/tmp}"},
    {"TwoDollars", "$${dir}", "$/tmp"},
    {"DollarBeforeText", "$a${dir}", "$a/tmp"},
    {"ValueStartsAReference", "${dollar}{dir}", "/tmp"},
    {"ValueOpensAReference", "${start}dir}", "/tmp"},
    {"ValueOpensWithoutEnd", "${start}dir", "${dir"},
    {"ValueOpensBeforeReference", "${start}${dir}", ""},
    {"ValueCannotCloseAnEarlierStart", "${dir${end}", ""},
    {"NulBeforeReference", std::string("a\0${dir}", 8), std::string("a\0/tmp", 6)},
};

class ASubstitution : public testing::TestWithParam<Row> {
 protected:
  void SetUp() override { ASSERT_TRUE(tests::LoadText(kFile)); }
};

TEST_P(ASubstitution, FollowsTheTable) {
  EXPECT_EQ(GetParam().expected, Settings::SubstituteVariables(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(OfReferences, ASubstitution, testing::ValuesIn(kReferences),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(OfNames, ASubstitution, testing::ValuesIn(kNames),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(OfNothing, ASubstitution, testing::ValuesIn(kUnchanged),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(ThatStops, ASubstitution, testing::ValuesIn(kStops),
                         testing::PrintToStringParamName());

TEST(AVariable, IsFoundInARootElementOfVariables) {
  ASSERT_TRUE(tests::LoadText("<variables><variable name='a' value='b'/></variables>"));
  EXPECT_EQ("b", Settings::SubstituteVariables("${a}"));
}

TEST(AVariable, IsNotFoundInADefaultNamespace) {
  ASSERT_TRUE(
      tests::LoadText("<variables xmlns='urn:x'><variable name='a' value='b'/></variables>"));
  EXPECT_EQ("", Settings::SubstituteVariables("${a}"));
}

TEST(AVariable, WithoutValueHidesALaterOneOfItsName) {
  ASSERT_TRUE(
      tests::LoadContent("<variables><variable name='a' value=''/>"
                         "<variable name='a' value='b'/></variables>"));
  EXPECT_EQ("", Settings::SubstituteVariables("${a}"));
}

TEST(AVariable, WithoutValueAttributeLeavesItsNameToALaterOne) {
  ASSERT_TRUE(
      tests::LoadContent("<variables><variable name='a'/>"
                         "<variable name='a' value='b'/></variables>"));
  EXPECT_EQ("b", Settings::SubstituteVariables("${a}"));
}

TEST(AVariable, IsTakenFromTheFileOfTheLastLoad) {
  ASSERT_TRUE(tests::LoadContent("<variables><variable name='a' value='b'/></variables>"));
  ASSERT_TRUE(tests::LoadContent("<variables><variable name='a' value='c'/></variables>"));
  EXPECT_EQ("c", Settings::SubstituteVariables("${a}"));
}

TEST(AVariable, IsUndefinedAfterAFailedLoad) {
  ASSERT_TRUE(tests::LoadContent("<variables><variable name='a' value='b'/></variables>"));
  ASSERT_FALSE(tests::LoadText("<settings>"));
  EXPECT_EQ("-", Settings::SubstituteVariables("${a}-"));
}

TEST(ASubstitutedText, IsLeftAsItIsByTheCallerAndTheNextLoad) {
  ASSERT_TRUE(tests::LoadContent("<variables><variable name='a' value='b'/></variables>"));
  const std::string text = "${a}";
  const std::string& substituted = Settings::SubstituteVariables(text);
  ASSERT_TRUE(tests::LoadText("<settings/>"));
  EXPECT_EQ("${a}", text);
  EXPECT_EQ("b", substituted);
}

}  // namespace
}  // namespace analytics
