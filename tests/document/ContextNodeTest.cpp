#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"
#include "tests/support/XmlVersion.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AContextNode : public testing::Test {
 protected:
  ParsedDocument m_document{"<a><b><c>1</c><c>2</c></b><c>3</c></a>"};
  const tests::XmlErrors m_quiet;
};

TEST_F(AContextNode, OfNullIsTheRootElementForRelativePaths) {
  EXPECT_EQ("3", m_document.GetSingleValue("c", nullptr));
  EXPECT_EQ(3, m_document.GetSingleValue("c", 7, nullptr));
  EXPECT_EQ(3.0, m_document.GetNumericValue("c", 7, nullptr));
  EXPECT_THAT(m_document.GetMultipleValues("c", nullptr), ElementsAre("3"));
  EXPECT_THAT(Dumps(m_document, "c", nullptr), ElementsAre("<c>3</c>"));
}

TEST_F(AContextNode, IsNullIfItIsNotGiven) {
  EXPECT_EQ(3.0, m_document.GetNumericValue("c", 7));
  EXPECT_THAT(m_document.GetMultipleValues("c"), ElementsAre("3"));
  EXPECT_EQ("<c>3</c>", tests::NodePtr(m_document.SelectNode("c"))->DumpToString());
  EXPECT_THAT(tests::Owned(m_document.SelectNodes("c")), testing::SizeIs(1));
  EXPECT_EQ(1, m_document.DeleteNodes("c"));
}

TEST_F(AContextNode, OfNullServesAbsolutePathsToo) {
  EXPECT_EQ("3", m_document.GetSingleValue("/a/c", nullptr));
  EXPECT_THAT(m_document.GetMultipleValues("//c"), ElementsAre("1", "2", "3"));
}

TEST_F(AContextNode, IsWhereRelativePathsStart) {
  DocumentNode b = NodeAt(m_document, "b");
  EXPECT_EQ("1", m_document.GetSingleValue("c", &b));
  EXPECT_EQ(1, m_document.GetSingleValue("./c", 7, &b));
  EXPECT_EQ(2.0, m_document.GetNumericValue("c[2]", 7, &b));
  EXPECT_THAT(m_document.GetMultipleValues("c", &b), ElementsAre("1", "2"));
  EXPECT_THAT(Dumps(m_document, "c", &b), ElementsAre("<c>1</c>", "<c>2</c>"));
  EXPECT_EQ(2, m_document.DeleteNodes("c", &b));
  EXPECT_EQ("<a><b/><c>3</c></a>", RootDump(m_document));
}

TEST_F(AContextNode, DoesNotConfineAbsolutePaths) {
  DocumentNode b = NodeAt(m_document, "b");
  EXPECT_EQ("3", m_document.GetSingleValue("/a/c", &b));
  EXPECT_THAT(m_document.GetMultipleValues("//c", &b), ElementsAre("1", "2", "3"));
  EXPECT_THAT(m_document.GetMultipleValues(".//c", &b), ElementsAre("1", "2"));
}

TEST_F(AContextNode, CanBeAnAttributeOrText) {
  ParsedDocument document("<a><b x='1'>text</b></a>");
  DocumentNode attribute = NodeAt(document, "b/@x");
  DocumentNode text = NodeAt(document, "b/text()");
  EXPECT_EQ("text", document.GetSingleValue("..", &attribute));
  EXPECT_EQ("1", document.GetSingleValue("../@x", &text));
}

TEST_F(AContextNode, CanBeTheDocumentNode) {
  DocumentNode above = NodeAt(m_document, "/");
  EXPECT_EQ("3", m_document.GetSingleValue("a/c", &above));
}

TEST_F(AContextNode, HoldsForItsQueryOnly) {
  DocumentNode b = NodeAt(m_document, "b");
  EXPECT_EQ("1", m_document.GetSingleValue("c", &b));
  EXPECT_EQ("3", m_document.GetSingleValue("c", nullptr));
}

TEST_F(AContextNode, OfNullIsTheNewRootElementAfterAnotherParse) {
  EXPECT_EQ("3", m_document.GetSingleValue("c", nullptr));
  ASSERT_TRUE(m_document.ParseString("<x><c>4</c></x>"));
  EXPECT_EQ("4", m_document.GetSingleValue("c", nullptr));
}

TEST_F(AContextNode, ThatIsEmptyLeavesRelativePathsWithoutAnswer) {
  DocumentNode empty;
  EXPECT_EQ(nullptr, m_document.SelectNode("c", &empty));
  EXPECT_THAT(m_document.SelectNodes("..", &empty), IsEmpty());
  EXPECT_EQ("", m_document.GetSingleValue(".", &empty));
  EXPECT_THAT(m_document.GetMultipleValues("@x", &empty), IsEmpty());
  EXPECT_EQ(7, m_document.GetSingleValue("c", 7, &empty));
  EXPECT_EQ(0.5, m_document.GetNumericValue("c", 0.5, &empty));
  EXPECT_EQ(0, m_document.DeleteNodes("c", &empty));
}

TEST_F(AContextNode, ThatIsEmptyServesAbsolutePaths) {
  DocumentNode empty;
  EXPECT_EQ("3", m_document.GetSingleValue("/a/c", &empty));
  EXPECT_THAT(m_document.GetMultipleValues("//c", &empty), ElementsAre("1", "2", "3"));
}

TEST_F(AContextNode, OfNullIsEmptyOnceTheRootElementIsDeleted) {
  ASSERT_EQ(1, m_document.DeleteNodes("/*"));
  EXPECT_EQ(nullptr, m_document.SelectNode("c"));
  EXPECT_EQ(nullptr, m_document.SelectNode("."));
  EXPECT_EQ(0, m_document.DeleteNodes("//c"));
}

/// Two documents that declare and use an entity of the same name.
class AContextNodeOfAnotherDocument : public testing::Test {
 protected:
  ParsedDocument m_document{"<!DOCTYPE a [<!ENTITY e '1'>]><a>&e;</a>"};
  ParsedDocument m_other{"<!DOCTYPE a [<!ENTITY e '2'>]><a><b>&e;</b><b x='&e;'>&e;.5</b></a>"};
  DocumentNode m_root = NodeAt(m_other, "/a");
};

TEST_F(AContextNodeOfAnotherDocument, IsReadWithTheEntitiesOfTheDocumentThatIsAsked) {
  const int value = tests::kXmlReadsWithEntitiesOfTheDocumentAsked ? 1 : 2;
  const std::string text = std::to_string(value);
  EXPECT_EQ(text, m_document.GetSingleValue("b", &m_root));
  EXPECT_EQ(value, m_document.GetSingleValue("b[2]/@x", 7, &m_root));
  EXPECT_EQ(value + 0.5, m_document.GetNumericValue("b[2]", 7, &m_root));
  EXPECT_THAT(m_document.GetMultipleValues("b", &m_root), ElementsAre(text, text + ".5"));
}

// With libxml2 2.9.14, which fills an entity where the document refers to it.
TEST_F(AContextNodeOfAnotherDocument, IsReadEmptyForAnEntityThatIsNeverReferredTo) {
  ParsedDocument document("<!DOCTYPE a [<!ENTITY e '1'>]><a/>");
  const char* const text = tests::kXmlReadsWithEntitiesOfTheDocumentAsked ? "" : "2";
  EXPECT_EQ(text, document.GetSingleValue("b", &m_root));
}

TEST_F(AContextNodeOfAnotherDocument, GivesNodesWithTheEntitiesOfTheirOwn) {
  EXPECT_EQ("2", tests::NodePtr(m_document.SelectNode("b", &m_root))->GetValue());
  EXPECT_EQ("2", tests::NodePtr(m_document.SelectNode("b[2]/@x", &m_root))->GetValue());
}

}  // namespace
}  // namespace analytics
