#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;

/// Counts the search contexts that it is asked for.
class CountingDocument : public Document {
 public:
  bool CreateSearchContext() override {
    ++m_asked;
    return Document::CreateSearchContext();
  }

  int Asked() const { return m_asked; }

 private:
  int m_asked = 0;
};

class ASearchContext : public testing::Test {
 protected:
  CountingDocument m_document;
  const tests::XmlErrors m_quiet;
};

TEST_F(ASearchContext, IsAskedForOnceAfterAParsedString) {
  ASSERT_TRUE(m_document.ParseString("<a/>"));
  EXPECT_EQ(1, m_document.Asked());
}

TEST_F(ASearchContext, IsAskedForOnceAfterAParsedBuffer) {
  ASSERT_TRUE(m_document.ParseString("<a/>", 4));
  EXPECT_EQ(1, m_document.Asked());
}

TEST_F(ASearchContext, IsAskedForOnceAfterAParsedFile) {
  const tests::TemporaryDirectory directory;
  ASSERT_TRUE(m_document.ParseFile(directory.Write("a.xml", "<a/>")));
  EXPECT_EQ(1, m_document.Asked());
}

TEST_F(ASearchContext, IsNotAskedForAfterAFailedParse) {
  EXPECT_FALSE(m_document.ParseString("<a>"));
  EXPECT_FALSE(m_document.ParseString("<a>", 3));
  EXPECT_FALSE(m_document.ParseFile("/nonexistent/a.xml"));
  EXPECT_EQ(0, m_document.Asked());
}

TEST_F(ASearchContext, IsNotAskedForByQueries) {
  ASSERT_TRUE(m_document.ParseString("<a><b>5</b></a>"));
  EXPECT_EQ("5", m_document.GetSingleValue("b", nullptr));
  EXPECT_EQ(1, m_document.DeleteNodes("b"));
  EXPECT_EQ(1, m_document.Asked());
}

TEST_F(ASearchContext, IsMadeAgainAtAnyTimeWhileADocumentIsOpen) {
  ASSERT_TRUE(m_document.ParseString("<a><b>5</b></a>"));
  EXPECT_TRUE(m_document.CreateSearchContext());
  EXPECT_TRUE(m_document.CreateSearchContext());
  EXPECT_EQ("5", m_document.GetSingleValue("b", nullptr));
}

TEST_F(ASearchContext, ThatCannotBeMadeFailsNoParse) {
  SwitchedDocument document(false);
  EXPECT_TRUE(document.ParseString("<a/>"));
  EXPECT_TRUE(document.ParseString("<a/>", 4));
  const tests::TemporaryDirectory directory;
  EXPECT_TRUE(document.ParseFile(directory.Write("a.xml", "<a/>")));
}

TEST_F(ASearchContext, OfAPlainDocumentBindsNoPrefix) {
  ASSERT_TRUE(m_document.ParseString("<p:a xmlns:p='urn:p'><p:b/></p:a>"));
  EXPECT_TRUE(Dumps(m_document, "p:b").empty());
  EXPECT_THAT(m_quiet.Codes(), ElementsAre(XML_XPATH_UNDEF_PREFIX_ERROR));
}

TEST_F(ASearchContext, OfAPlainDocumentBindsThePrefixXml) {
  ASSERT_TRUE(m_document.ParseString("<a xml:lang='en'/>"));
  EXPECT_EQ("en", m_document.GetSingleValue("@xml:lang", nullptr));
}

TEST_F(ASearchContext, OfAPlainDocumentBindsNoPrefixOfProfiles) {
  ASSERT_TRUE(m_document.ParseString(
      "<p xmlns:tt='http://www.onvif.org/ver10/schema' xmlns:ka='urn:kestal-com:schema:onvif:"
      "analytics:1'><tt:rule/><ka:eventSink/></p>"));
  EXPECT_TRUE(Dumps(m_document, "//tt:rule").empty());
  EXPECT_TRUE(Dumps(m_document, "//ka:eventSink").empty());
}

TEST_F(ASearchContext, OfAPlainDocumentFindsNamespacedElementsByLocalName) {
  ASSERT_TRUE(m_document.ParseString("<p:a xmlns:p='urn:p'><p:b>5</p:b></p:a>"));
  EXPECT_EQ("5", m_document.GetSingleValue("*[local-name()='b']", nullptr));
  EXPECT_EQ("", m_document.GetSingleValue("b", nullptr));
}

}  // namespace
}  // namespace analytics
