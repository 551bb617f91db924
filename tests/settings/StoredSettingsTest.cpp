#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/settings/TextSettings.h"

namespace analytics {
namespace {

using tests::ElementOf;
using tests::LoadContent;
using tests::LoadText;

/// A settings file as it is shipped, with every setting given a value of its own.
constexpr char kFullFile[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<settings>
  <maxSessions>4</maxSessions>
  <maxResource>2500</maxResource>
  <pluginRepository>/opt/plugins</pluginRepository>
  <videoInputFile>/tmp/input.yuv</videoInputFile>
  <quadOutputFile>/tmp/quad.yuv</quadOutputFile>
  <profile4DefaultModules>/opt/Default.xml</profile4DefaultModules>
  <userdataPipe>/var/run/first.pipe</userdataPipe>
  <userdataPipe>/var/run/second.pipe</userdataPipe>
  <tags>
    <profile>Profile</profile>
    <mediaSource>Camera</mediaSource>
    <engines>EngineList</engines>
    <engine>EngineItem</engine>
    <rules>RuleList</rules>
    <rule>RuleItem</rule>
    <eventSinks>SinkList</eventSinks>
    <eventSink>SinkItem</eventSink>
    <cameraPreset>Preset</cameraPreset>
  </tags>
  <namespaces>
    <kestal><url>urn:example:vendor</url><prefix>vendor</prefix></kestal>
    <onvif><url>urn:example:onvif</url><prefix>onvif</prefix></onvif>
  </namespaces>
  <variables><variable name="dir" value="/tmp"/></variables>
</settings>
)";

class ATextSetting : public testing::TestWithParam<tests::TextSetting> {
 protected:
  static std::string Value() { return GetParam().operation(); }

  /// The setting's element around `content`, with the elements of its path.
  static std::string Element(const std::string& content) {
    return ElementOf(GetParam().key, content);
  }

  /// As `Element`, in a file that the setting is read from.
  static bool LoadElement(const std::string& content) { return LoadContent(Element(content)); }

  static bool LoadSample() { return LoadElement(GetParam().sample); }

  static bool IsRepository() { return GetParam().operation == Settings::PluginRepository; }

  /// A text as it is stored: the repository ends in a slash.
  static std::string Stored(const std::string& text) { return IsRepository() ? text + "/" : text; }
};

TEST_P(ATextSetting, IsTakenFromAFullFile) {
  ASSERT_TRUE(LoadText(kFullFile));
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsGivenAsOftenAsItIsAskedFor) {
  ASSERT_TRUE(LoadSample());
  EXPECT_EQ(GetParam().sample, Value());
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsTakenFromAFileThatHoldsNothingElse) {
  ASSERT_TRUE(LoadSample());
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsEmptiedByAFileThatHoldsOnlyARootElement) {
  ASSERT_TRUE(LoadText(kFullFile));
  ASSERT_TRUE(LoadText("<settings/>"));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsEmptyForAnEmptyElement) {
  ASSERT_TRUE(LoadElement(""));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, KeepsTheBlanksOfItsText) {
  ASSERT_TRUE(LoadElement(" a  b\n"));
  EXPECT_EQ(Stored(" a  b\n"), Value());
}

TEST_P(ATextSetting, IsFoundAtAnyDepthUnderAnyRootElement) {
  ASSERT_TRUE(LoadText("<a><b/><b><c>" + Element(GetParam().sample) + "</c></b></a>"));
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsFoundAsTheRootElementItself) {
  ASSERT_TRUE(LoadText(Element(GetParam().sample)));
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsTheFirstOfTwoInDocumentOrder) {
  ASSERT_TRUE(LoadContent("<deep>" + Element(GetParam().sample) + "</deep>" + Element("later")));
  EXPECT_EQ(GetParam().sample, Value());
}

TEST_P(ATextSetting, IsEmptyIfTheFirstOfTwoIs) {
  ASSERT_TRUE(LoadContent(Element("") + Element("later")));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsNotFoundInADefaultNamespace) {
  ASSERT_TRUE(LoadText("<a xmlns='urn:example'>" + Element(GetParam().sample) + "</a>"));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsNotFoundUnderAPrefix) {
  const std::string tag = "n:" + tests::TagOf(GetParam().key);
  const std::string element = tests::WithinParentsOf(GetParam().key, ElementOf(tag, "x"));
  ASSERT_TRUE(LoadText("<a xmlns:n='urn:example'>" + element + "</a>"));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsNotFoundInOtherCase) {
  std::string tag = tests::TagOf(GetParam().key);
  tag.front() = static_cast<char>(std::toupper(tag.front()));
  ASSERT_TRUE(LoadContent(tests::WithinParentsOf(GetParam().key, ElementOf(tag, "x"))));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsNotReadFromAttributes) {
  const std::string tag = tests::TagOf(GetParam().key);
  const std::string element = "<" + tag + " value='x' " + tag + "='y'/>";
  ASSERT_TRUE(LoadContent(tests::WithinParentsOf(GetParam().key, element)));
  EXPECT_EQ("", Value());
}

TEST_P(ATextSetting, IsTheTextOfItsElementWithoutThatOfChildElements) {
  ASSERT_TRUE(LoadElement("a<b>c</b>&amp;<!-- d --><![CDATA[<e>]]>"));
  EXPECT_EQ(Stored("a&<e>"), Value());
}

TEST_P(ATextSetting, IsGivenInUtf8WhateverTheEncodingOfTheFile) {
  ASSERT_TRUE(LoadText("<?xml version='1.0' encoding='ISO-8859-1'?>" + Element("gr\xFC\xDF")));
  EXPECT_EQ(Stored("gr\xC3\xBC\xC3\x9F"), Value());
}

TEST_P(ATextSetting, OnceReturnedDoesNotChangeWithALaterLoad) {
  ASSERT_TRUE(LoadSample());
  const std::string& returned = GetParam().operation();
  ASSERT_TRUE(LoadElement("something else"));
  EXPECT_EQ(GetParam().sample, returned);
  EXPECT_EQ(Stored("something else"), Value());
}

TEST_P(ATextSetting, IsNeverKeptFromTheFileBefore) {
  ASSERT_TRUE(LoadSample());
  for (const tests::TextSetting& other : tests::kTextSettings) {
    ASSERT_TRUE(LoadContent(ElementOf(other.key, "x")));
    EXPECT_EQ(other.operation == GetParam().operation ? Stored("x") : "", Value()) << other.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Settings, ATextSetting, testing::ValuesIn(tests::kTextSettings),
                         testing::PrintToStringParamName());

std::vector<tests::TextSetting> GroupedSettings() {
  std::vector<tests::TextSetting> grouped;
  std::copy_if(std::begin(tests::kTextSettings), std::end(tests::kTextSettings),
               std::back_inserter(grouped), [](const tests::TextSetting& setting) {
                 return std::string(setting.key).find('/') != std::string::npos;
               });
  return grouped;
}

/// A setting whose element belongs into that of a group, such as "tags".
class AGroupedSetting : public testing::TestWithParam<tests::TextSetting> {};

TEST_P(AGroupedSetting, IsNotFoundOutsideItsGroup) {
  const std::string key = GetParam().key;
  ASSERT_TRUE(LoadContent(ElementOf(key.substr(key.find('/') + 1), "x")));
  EXPECT_EQ("", GetParam().operation());
}

TEST_P(AGroupedSetting, IsNotFoundDeeperInItsGroup) {
  const std::string deeper = ElementOf("more/" + tests::TagOf(GetParam().key), "x");
  ASSERT_TRUE(LoadContent(tests::WithinParentsOf(GetParam().key, deeper)));
  EXPECT_EQ("", GetParam().operation());
}

INSTANTIATE_TEST_SUITE_P(Settings, AGroupedSetting, testing::ValuesIn(GroupedSettings()),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace analytics
