#include <string>
#include <tuple>
#include <utility>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// Whether a document parses again after it was saved with success.
bool SavesAndParses(Document& document, Document& again) {
  const tests::XmlErrors quiet;
  const tests::TemporaryDirectory directory;
  EXPECT_TRUE(document.SaveToFile(directory.PathOf("saved.xml")));
  return again.ParseFile(directory.PathOf("saved.xml"));
}

bool SavesAndParses(Document& document) {
  Document again;
  return SavesAndParses(document, again);
}

/// A name that XML does not allow.
class AnInvalidName : public testing::TestWithParam<std::string> {
 protected:
  ParsedDocument m_document{"<r/>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
};

TEST_P(AnInvalidName, OfAnAttributeGivesADocumentThatDoesNotParseAgain) {
  m_root.SetProperty(GetParam(), "value");
  EXPECT_FALSE(SavesAndParses(m_document));
}

TEST_P(AnInvalidName, OfAnElementGivesADocumentThatDoesNotParseAgain) {
  const tests::NodePtr child(m_root.AddNewChild(GetParam(), "text"));
  EXPECT_FALSE(SavesAndParses(m_document));
}

INSTANTIATE_TEST_SUITE_P(Names, AnInvalidName,
                         testing::Values("bad name<", "1a", "-", "<", "a=", "\xFF", "a\x01",
                                         std::string("\0a", 2)));

/// A text that is not UTF-8 or holds a character that XML forbids, in a document of an encoding.
class AnInvalidText : public testing::TestWithParam<std::tuple<std::string, std::string>> {
 protected:
  const std::string m_text = std::get<0>(GetParam());
  ParsedDocument m_document{std::get<1>(GetParam()) + "<r/>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
  Document m_again;
  const tests::XmlErrors m_quiet;
};

TEST_P(AnInvalidText, OfAnAttributeIsNotWhatASavedDocumentHolds) {
  m_root.SetProperty("v", m_text);
  EXPECT_EQ(m_text, m_root.GetProperty("v"));
  SavesAndParses(m_document, m_again);
  EXPECT_NE(m_text, m_again.GetSingleValue("/r/@v", nullptr));
}

TEST_P(AnInvalidText, OfAnElementIsNotWhatASavedDocumentHolds) {
  m_root.SetValue(m_text);
  EXPECT_EQ(m_text, m_root.GetValue());
  SavesAndParses(m_document, m_again);
  EXPECT_NE(m_text, m_again.GetSingleValue("/r", nullptr));
}

INSTANTIATE_TEST_SUITE_P(
    TextsInEncodings, AnInvalidText,
    testing::Combine(testing::Values("\xFF", "\x01", "a\x0B", "\xEF\xBF\xBF", "\xED\xA0\x80"),
                     testing::Values("", "<?xml version='1.0' encoding='UTF-8'?>",
                                     "<?xml version='1.0' encoding='ISO-8859-1'?>")));

/// A reference in an element's text that is not what it seems.
class ABareAmpersand : public testing::TestWithParam<const char*> {
 protected:
  ParsedDocument m_document{"<r><a>former</a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
  const tests::XmlErrors m_quiet;
};

// libxml2 2.9.14 drops the whole text, 2.15 the ampersand.
TEST_P(ABareAmpersand, IsLostWithOrWithoutTheText) {
  std::string without = GetParam();
  without.erase(without.find('&'), 1);
  m_node.SetValue(GetParam());
  EXPECT_THAT(m_node.GetValue(), AnyOf("", without));
  const tests::NodePtr child(m_node.AddNewChild("b", GetParam()));
  EXPECT_THAT(child->GetValue(), AnyOf("", without));
}

TEST_P(ABareAmpersand, ComesBackFromAnAttribute) {
  m_node.SetProperty("x", GetParam());
  Document again;
  ASSERT_TRUE(SavesAndParses(m_document, again));
  EXPECT_EQ(GetParam(), again.GetSingleValue("/r/a/@x", nullptr));
}

INSTANTIATE_TEST_SUITE_P(Texts, ABareAmpersand, testing::Values("AT&T", "a & b", "&", "x&"));

class AnUndeclaredEntity : public testing::Test {
 protected:
  ParsedDocument m_document{"<r/>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
};

TEST_F(AnUndeclaredEntity, OfASetTextGivesADocumentThatDoesNotParseAgain) {
  m_root.SetValue("x&y;z");
  EXPECT_EQ("xz", m_root.GetValue());
  EXPECT_FALSE(SavesAndParses(m_document));
}

TEST_F(AnUndeclaredEntity, OfANewChildGivesADocumentThatDoesNotParseAgain) {
  const tests::NodePtr child(m_root.AddNewChild("a", "x&y;z"));
  EXPECT_EQ("xz", child->GetValue());
  EXPECT_FALSE(SavesAndParses(m_document));
}

/// A comment or an instruction, and a text that ends it and goes on with an element.
class ANodeThatItsTextEnds : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(ANodeThatItsTextEnds, HasTheRestBecomeMarkupInASavedDocument) {
  ParsedDocument document("<r><!--former--><?former text?></r>");
  NodeAt(document, GetParam().first).SetValue(GetParam().second);
  EXPECT_THAT(Dumps(document, "//x"), IsEmpty());
  Document again;
  ASSERT_TRUE(SavesAndParses(document, again));
  EXPECT_THAT(Dumps(again, "/r/x"), ElementsAre("<x/>"));
}

INSTANTIATE_TEST_SUITE_P(Nodes, ANodeThatItsTextEnds,
                         testing::Values(std::make_pair("comment()", "--><x/><!--"),
                                         std::make_pair("processing-instruction()", "?><x/><?y ")));

/// A prefix that XML keeps for itself.
class AReservedPrefix : public testing::TestWithParam<const char*> {};

TEST_P(AReservedPrefix, DoesNotComeBackWithANamespaceOfTheCallers) {
  ParsedDocument document("<r/>");
  NodeAt(document, "/r").SetNs("urn:u", GetParam());
  Document again;
  SavesAndParses(document, again);
  EXPECT_THAT(Dumps(again, "//*[namespace-uri()='urn:u']"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Prefixes, AReservedPrefix, testing::Values("xml", "xmlns"));

/// What libxml2 writes, but does not read.
class BeyondTheLimitsOfAParser : public testing::Test {
 protected:
  /// An element in `levels` - 1 others.
  static std::string Nested(int levels) {
    ParsedDocument document("<r/>");
    tests::NodePtr node(document.SelectRootNode());
    for (int level = 1; level < levels; ++level) node.reset(node->AddNewChild("a", ""));
    return RootDump(document);
  }

  ParsedDocument m_document{"<r/>"};
  Document m_again;
  const tests::XmlErrors m_quiet;
};

TEST_F(BeyondTheLimitsOfAParser, IsATextOfMoreThanTenMillionBytes) {
  NodeAt(m_document, "/r").SetValue(std::string(10000001, 'x'));
  EXPECT_FALSE(SavesAndParses(m_document));
}

TEST_F(BeyondTheLimitsOfAParser, IsNotATextOfTenMillionBytes) {
  const std::string text(10000000, 'x');
  NodeAt(m_document, "/r").SetValue(text);
  ASSERT_TRUE(SavesAndParses(m_document, m_again));
  EXPECT_TRUE(text == m_again.GetSingleValue("/r", nullptr));
}

// With 257 it depends on libxml2.
TEST_F(BeyondTheLimitsOfAParser, AreMoreThan256Levels) {
  EXPECT_TRUE(m_again.ParseString(Nested(256)));
  EXPECT_FALSE(m_again.ParseString(Nested(258)));
}

}  // namespace
}  // namespace analytics
