#include <string>

#include <gmock/gmock.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Deleting : public testing::Test {
 protected:
  ParsedDocument m_document{R"(<r><a x="1">1</a><b/><a><c>2</c></a>text<a/><!--note--></r>)"};
};

TEST_F(Deleting, RemovesAllSelectedElementsWithTheirSubtrees) {
  EXPECT_EQ(3, m_document.DeleteNodes("a"));
  EXPECT_EQ("<r><b/>text<!--note--></r>", RootDump(m_document));
  EXPECT_THAT(m_document.SelectNodes("a"), IsEmpty());
}

TEST_F(Deleting, RemovesSelectedElementsWhereverTheyAre) {
  EXPECT_EQ(1, m_document.DeleteNodes("//c"));
  EXPECT_EQ("<r><a x=\"1\">1</a><b/><a/>text<a/><!--note--></r>", RootDump(m_document));
}

TEST_F(Deleting, OfNothingChangesNothing) {
  const std::string before = RootDump(m_document);
  EXPECT_EQ(0, m_document.DeleteNodes("none"));
  EXPECT_EQ(before, RootDump(m_document));
}

TEST_F(Deleting, RemovesAttributes) {
  EXPECT_EQ(1, m_document.DeleteNodes("//@x"));
  EXPECT_EQ("", NodeAt(m_document, "a").GetProperty("x"));
}

TEST_F(Deleting, RemovesTexts) {
  EXPECT_EQ(3, m_document.DeleteNodes("//text()"));
  EXPECT_EQ("<r><a x=\"1\"/><b/><a><c/></a><a/><!--note--></r>", RootDump(m_document));
}

TEST_F(Deleting, RemovesComments) {
  EXPECT_EQ(1, m_document.DeleteNodes("comment()"));
  EXPECT_EQ("<r><a x=\"1\">1</a><b/><a><c>2</c></a>text<a/></r>", RootDump(m_document));
}

TEST_F(Deleting, RemovesWhatIsSelectedFromAContextNode) {
  DocumentNode second = NodeAt(m_document, "a[2]");
  EXPECT_EQ(1, m_document.DeleteNodes("*", &second));
  EXPECT_EQ("<r><a x=\"1\">1</a><b/><a/>text<a/><!--note--></r>", RootDump(m_document));
}

TEST_F(Deleting, RemovesTheContextNodeItself) {
  DocumentNode second = NodeAt(m_document, "a[2]");
  EXPECT_EQ(1, m_document.DeleteNodes(".", &second));
  EXPECT_THAT(tests::All(m_document, "a"), SizeIs(2));
}

TEST_F(Deleting, FreesEachNodeOnce) {
  const void* const element = NodeAt(m_document, "a[2]").Handle();
  const void* const child = NodeAt(m_document, "a[2]/c").Handle();
  const FreedNodes freed;
  EXPECT_EQ(3, m_document.DeleteNodes("a"));
  EXPECT_EQ(1, freed.Count(element));
  EXPECT_EQ(1, freed.Count(child));
}

TEST_F(Deleting, LeavesOtherHandlesValid) {
  DocumentNode kept = NodeAt(m_document, "b");
  EXPECT_EQ(3, m_document.DeleteNodes("a"));
  EXPECT_EQ("<b/>", kept.DumpToString());
}

TEST_F(Deleting, CanBeRepeated) {
  EXPECT_EQ(3, m_document.DeleteNodes("a"));
  EXPECT_EQ(0, m_document.DeleteNodes("a"));
  EXPECT_EQ(1, m_document.DeleteNodes("b"));
}

TEST_F(Deleting, OfTheRootElementLeavesAnEmptyDocument) {
  EXPECT_EQ(1, m_document.DeleteNodes("/r"));
  EXPECT_EQ("<?xml version=\"1.0\"?>\n", m_document.DumpToString());
}

TEST_F(Deleting, KeepsATypeDeclarationWithItsEntities) {
  ParsedDocument document("<!DOCTYPE r [<!ENTITY e 'x'>]><r k='&e;'>1&e;2</r>");
  EXPECT_EQ(4, document.DeleteNodes("//node() | //@*"));
  EXPECT_EQ("<?xml version=\"1.0\"?>\n<!DOCTYPE r [\n<!ENTITY e \"x\">\n]>\n",
            document.DumpToString());
}

/// The document node belongs to the document and is freed with it only.
class DeletingTheDocumentNode : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a/></r>"};
};

TEST_F(DeletingTheDocumentNode, NeitherFreesNorCountsIt) {
  EXPECT_EQ(0, m_document.DeleteNodes("/"));
  EXPECT_EQ("<r><a/></r>", RootDump(m_document));
}

TEST_F(DeletingTheDocumentNode, StillDeletesWhatIsSelectedWithIt) {
  EXPECT_EQ(2, m_document.DeleteNodes("//node() | /"));
  EXPECT_EQ("<?xml version=\"1.0\"?>\n", m_document.DumpToString());
}

TEST_F(DeletingTheDocumentNode, StillDeletesItsChildren) {
  EXPECT_EQ(1, m_document.DeleteNodes("a | /"));
  EXPECT_EQ("<r/>", RootDump(m_document));
}

}  // namespace
}  // namespace analytics
