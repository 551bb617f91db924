#include <string>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char kProfile[] =
    "<r:profile xmlns:r='http://www.onvif.org/ver10/schema' xmlns:k='urn:kestal-com:schema:onvif:"
    "analytics:1'><r:rule>rule</r:rule><k:eventSink>sink</k:eventSink><rule>plain</rule>"
    "<d xmlns='http://www.onvif.org/ver10/schema'><rule>inner</rule></d></r:profile>";

class TheBindings : public testing::Test {
 protected:
  // The first use of the settings has libxml2 report a missing file, which is no matter here.
  TheBindings() { Settings::OnvifPrefix(); }

  const tests::XmlErrors m_quiet;
  BindingDocument m_document;
};

TEST_F(TheBindings, HoldTheOnvifNamespaceWhateverPrefixTheFileUses) {
  const tests::XmlErrors errors;
  ASSERT_TRUE(m_document.ParseString(kProfile));
  EXPECT_THAT(m_document.GetMultipleValues("//tt:rule"), ElementsAre("rule", "inner"));
  EXPECT_THAT(errors.Codes(), IsEmpty());
}

TEST_F(TheBindings, HoldTheVendorsNamespace) {
  ASSERT_TRUE(m_document.ParseString(kProfile));
  EXPECT_EQ("sink", m_document.GetSingleValue("//ka:eventSink", nullptr));
  EXPECT_EQ("", m_document.GetSingleValue("//tt:eventSink", nullptr));
}

TEST_F(TheBindings, HoldNoPrefixOfTheFile) {
  const tests::XmlErrors errors;
  ASSERT_TRUE(m_document.ParseString(kProfile));
  EXPECT_EQ("", m_document.GetSingleValue("//r:rule", nullptr));
  EXPECT_EQ("", m_document.GetSingleValue("//k:eventSink", nullptr));
  EXPECT_THAT(errors.Codes(),
              ElementsAre(XML_XPATH_UNDEF_PREFIX_ERROR, XML_XPATH_UNDEF_PREFIX_ERROR));
}

TEST_F(TheBindings, LeaveNamesWithoutPrefixToNoNamespace) {
  ASSERT_TRUE(m_document.ParseString(kProfile));
  EXPECT_THAT(m_document.GetMultipleValues("//rule"), ElementsAre("plain"));
}

TEST_F(TheBindings, MatchUrisByteForByte) {
  ASSERT_TRUE(m_document.ParseString("<a xmlns='http://www.onvif.org/ver10/Schema'>text</a>"));
  EXPECT_EQ("", m_document.GetSingleValue("/tt:a", nullptr));
}

TEST_F(TheBindings, ServeEveryQuery) {
  ASSERT_TRUE(
      m_document.ParseString("<p xmlns='http://www.onvif.org/ver10/schema'><a>5</a><a>6</a></p>"));
  EXPECT_EQ(5, m_document.GetSingleValue("tt:a", 7, nullptr));
  EXPECT_EQ(6.0, m_document.GetNumericValue("tt:a[2]", 7));
  EXPECT_THAT(Dumps(m_document, "tt:a"), ElementsAre("<a>5</a>", "<a>6</a>"));
  EXPECT_EQ(2, m_document.DeleteNodes("/tt:p/tt:a"));
}

TEST_F(TheBindings, AreMadeAgainByEveryParse) {
  ASSERT_TRUE(m_document.ParseString(kProfile));
  ASSERT_TRUE(m_document.ParseString(kProfile));
  EXPECT_EQ("rule", m_document.GetSingleValue("//tt:rule", nullptr));
}

TEST_F(TheBindings, VanishWithTheirContext) {
  ShownDocument document;
  ASSERT_TRUE(document.ParseString(kProfile));
  ASSERT_TRUE(document.Implementation().CreateXPathContext(true));
  EXPECT_EQ("rule", document.GetSingleValue("//tt:rule", nullptr));
  ASSERT_TRUE(document.CreateSearchContext());
  EXPECT_EQ("", document.GetSingleValue("//tt:rule", nullptr));
}

/// Bindings under settings of a file, each test in a process of its own.
class TheBindingsOfAFile : public testing::Test {
 protected:
  static std::string Namespaces(const std::string& onvif, const std::string& kestal) {
    return "<s><namespaces><onvif>" + onvif + "</onvif><kestal>" + kestal +
           "</kestal></namespaces></s>";
  }

  static std::string Binding(const std::string& prefix, const std::string& url) {
    return "<prefix>" + prefix + "</prefix><url>" + url + "</url>";
  }

  void Load(const std::string& settings) {
    ASSERT_TRUE(Settings::LoadSettings(m_directory.Write("analytics.ini", settings)));
  }

  const tests::XmlErrors m_quiet;
  const tests::TemporaryDirectory m_directory;
  BindingDocument m_document;
};

const char kTwoNamespaces[] =
    "<r xmlns:a='urn:one' xmlns:b='urn:two'><a:x>one</a:x><b:x>two</b:x></r>";

TEST_F(TheBindingsOfAFile, TakeThePlaceOfTheBuiltInOnes) {
  tests::InFreshProcess([this] {
    Load(Namespaces(Binding("on", "urn:one"), Binding("v", "urn:two")));
    ASSERT_TRUE(m_document.ParseString(kTwoNamespaces));
    EXPECT_EQ("one", m_document.GetSingleValue("//on:x", nullptr));
    EXPECT_EQ("two", m_document.GetSingleValue("//v:x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//tt:x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//ka:x", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, AreThoseOfTheLastLoadWhenTheContextIsMade) {
  tests::InFreshProcess([this] {
    Load(Namespaces(Binding("on", "urn:one"), Binding("v", "urn:two")));
    Load(Namespaces(Binding("on", "urn:two"), Binding("v", "urn:one")));
    ASSERT_TRUE(m_document.ParseString(kTwoNamespaces));
    EXPECT_EQ("two", m_document.GetSingleValue("//on:x", nullptr));
    EXPECT_EQ("one", m_document.GetSingleValue("//v:x", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, DoNotReachAnOpenDocumentUntilItsContextIsMadeAgain) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString(kProfile));
    Load(Namespaces(Binding("on", "http://www.onvif.org/ver10/schema"), Binding("v", "urn:two")));
    EXPECT_EQ("rule", m_document.GetSingleValue("//tt:rule", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//on:rule", nullptr));
    ASSERT_TRUE(m_document.CreateSearchContext());
    EXPECT_EQ("rule", m_document.GetSingleValue("//on:rule", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//tt:rule", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, ReachTheNextDocumentThatIsParsed) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString(kProfile));
    Load(Namespaces(Binding("on", "http://www.onvif.org/ver10/schema"), Binding("v", "urn:two")));
    ASSERT_TRUE(m_document.ParseString(kProfile));
    EXPECT_EQ("rule", m_document.GetSingleValue("//on:rule", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//tt:rule", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, OmitAnEmptyPrefixSilently) {
  tests::InFreshProcess([this] {
    Load(Namespaces(Binding("", "urn:one"), Binding("v", "urn:two")));
    const tests::XmlErrors errors;
    EXPECT_TRUE(m_document.ParseString(kTwoNamespaces));
    EXPECT_THAT(errors.Codes(), IsEmpty());
    EXPECT_EQ("two", m_document.GetSingleValue("//v:x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//:x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//tt:x", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, OmitAnEmptyVendorPrefixToo) {
  tests::InFreshProcess([this] {
    Load(Namespaces(Binding("on", "urn:one"), Binding("", "urn:two")));
    const tests::XmlErrors errors;
    EXPECT_TRUE(m_document.ParseString(kTwoNamespaces));
    EXPECT_THAT(errors.Codes(), IsEmpty());
    EXPECT_EQ("one", m_document.GetSingleValue("//on:x", nullptr));
    EXPECT_EQ("", m_document.GetSingleValue("//ka:x", nullptr));
  });
}

TEST_F(TheBindingsOfAFile, GiveASharedPrefixToTheVendorWhoIsBoundLast) {
  tests::InFreshProcess([this] {
    Load(Namespaces(Binding("n", "urn:one"), Binding("n", "urn:two")));
    ASSERT_TRUE(m_document.ParseString(kTwoNamespaces));
    EXPECT_THAT(m_document.GetMultipleValues("//n:x"), ElementsAre("two"));
  });
}

}  // namespace
}  // namespace analytics
