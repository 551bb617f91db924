#include <string>

#include <gmock/gmock.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const char kShop[] =
    R"(<shop><item n="1">tea</item><box><item n="2">cup</item></box><note/></shop>)";

class Selecting : public testing::Test {
 protected:
  ParsedDocument m_shop{kShop};
};

TEST_F(Selecting, TheRootNodeGivesTheRootElement) {
  const tests::NodePtr root(m_shop.SelectRootNode());
  ASSERT_TRUE(root);
  EXPECT_EQ(kShop, root->DumpToString());
  EXPECT_EQ(NodeAt(m_shop, "/shop").Handle(), root->Handle());
}

TEST_F(Selecting, TheRootNodeGivesANewObjectEachTime) {
  const tests::NodePtr first(m_shop.SelectRootNode());
  const tests::NodePtr second(m_shop.SelectRootNode());
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(first->Handle(), second->Handle());
}

TEST_F(Selecting, TheRootNodeGivesAnEmptyNodeOnceTheRootElementIsDeleted) {
  ASSERT_EQ(1, m_shop.DeleteNodes("/*"));
  const tests::NodePtr root(m_shop.SelectRootNode());
  ASSERT_TRUE(root);
  EXPECT_EQ(nullptr, root->Handle());
}

TEST_F(Selecting, ANodeGivesTheFirstInDocumentOrder) {
  EXPECT_EQ("<item n=\"1\">tea</item>", NodeAt(m_shop, "//item").DumpToString());
  EXPECT_EQ("<item n=\"1\">tea</item>", NodeAt(m_shop, "box/item | item").DumpToString());
  EXPECT_EQ("<box><item n=\"2\">cup</item></box>",
            NodeAt(m_shop, "note/preceding::box/descendant-or-self::*").DumpToString());
}

TEST_F(Selecting, ANodeGivesNullWhereNothingIsSelected) {
  EXPECT_EQ(nullptr, m_shop.SelectNode("none"));
  EXPECT_EQ(nullptr, m_shop.SelectNode("item[@n='3']", nullptr));
}

TEST_F(Selecting, ANodeGivesANewObjectEachTime) {
  const tests::NodePtr first = tests::First(m_shop, "note");
  const tests::NodePtr second = tests::First(m_shop, "note");
  ASSERT_TRUE(first && second);
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(first->Handle(), second->Handle());
}

TEST_F(Selecting, NodesGivesAllInDocumentOrder) {
  EXPECT_THAT(Dumps(m_shop, "//item"),
              ElementsAre("<item n=\"1\">tea</item>", "<item n=\"2\">cup</item>"));
  EXPECT_THAT(
      Dumps(m_shop, "note | item | box"),
      ElementsAre("<item n=\"1\">tea</item>", "<box><item n=\"2\">cup</item></box>", "<note/>"));
}

TEST_F(Selecting, NodesGivesTheNodesOfAReverseAxisInDocumentOrder) {
  EXPECT_THAT(Dumps(m_shop, "note/preceding-sibling::*"),
              ElementsAre("<item n=\"1\">tea</item>", "<box><item n=\"2\">cup</item></box>"));
}

TEST_F(Selecting, NodesGivesTheNodesOfIdsInDocumentOrder) {
  ParsedDocument document("<!DOCTYPE r [<!ATTLIST a i ID #IMPLIED>]><r><a i='x'/><a i='y'/></r>");
  EXPECT_THAT(Dumps(document, "id('y x')"), ElementsAre("<a i=\"x\"/>", "<a i=\"y\"/>"));
}

TEST_F(Selecting, NodesGivesEachNodeOnce) {
  EXPECT_THAT(Dumps(m_shop, "item | item | //item[@n='1']"),
              ElementsAre("<item n=\"1\">tea</item>"));
}

TEST_F(Selecting, NodesGivesAnEmptyListWhereNothingIsSelected) {
  EXPECT_THAT(m_shop.SelectNodes("none"), IsEmpty());
  EXPECT_THAT(m_shop.SelectNodes("none", nullptr), IsEmpty());
}

TEST_F(Selecting, FindsAttributes) {
  EXPECT_THAT(Dumps(m_shop, "//@n"), ElementsAre(" n=\"1\"", " n=\"2\""));
  EXPECT_EQ("1", NodeAt(m_shop, "item/@n").GetValue());
}

TEST_F(Selecting, FindsTextsCommentsAndInstructions) {
  ParsedDocument document("<a>one<!--two--><?three four?></a>");
  EXPECT_THAT(Dumps(document, "node()"), ElementsAre("one", "<!--two-->", "<?three four?>"));
}

TEST_F(Selecting, FindsTheDocumentNode) {
  const DocumentNode above = NodeAt(m_shop, "..");
  EXPECT_EQ(NodeAt(m_shop, "/").Handle(), DocumentNode(above).Handle());
  EXPECT_NE(NodeAt(m_shop, "/*").Handle(), DocumentNode(above).Handle());
}

TEST_F(Selecting, LeavesTheTreeAsItIsWhenTheObjectsAreDeleted) {
  const FreedNodes freed;
  const void* const handle = NodeAt(m_shop, "note").Handle();
  tests::All(m_shop, "//node()").clear();
  tests::NodePtr(m_shop.SelectRootNode()).reset();
  EXPECT_EQ(0, freed.Count(handle));
  EXPECT_THAT(Dumps(m_shop, "//*"), SizeIs(5));
}

TEST_F(Selecting, NodesTakesNoMoreMemoryForItsListThanItNeeds) {
  ParsedDocument document("<a><b/><b/><b/><b/><b/></a>");
  const std::vector<DocumentNode*> nodes = document.SelectNodes("b", nullptr);
  EXPECT_EQ(5U, nodes.capacity());
  tests::Owned(nodes);
}

TEST_F(Selecting, CopesWithManyNodes) {
  std::string text = "<a>";
  for (int count = 0; count < 1000; ++count) text += "<b/>";
  ParsedDocument document(text + "</a>");
  EXPECT_THAT(tests::All(document, "b"), SizeIs(1000));
}

/// Namespace nodes are copies that die with their query.
class SelectingNamespaceNodes : public testing::Test {
 protected:
  // The prefix "xml" is in scope everywhere, so there are two namespace nodes at each element.
  ParsedDocument m_document{"<a xmlns:p='urn:p'/>"};
};

TEST_F(SelectingNamespaceNodes, GivesEmptyNodes) {
  const std::vector<tests::NodePtr> nodes = tests::All(m_document, "namespace::*");
  ASSERT_THAT(nodes, SizeIs(2));
  EXPECT_EQ(nullptr, nodes[0]->Handle());
  EXPECT_EQ(nullptr, nodes[1]->Handle());
}

TEST_F(SelectingNamespaceNodes, GivesAnEmptyNodeAsTheFirst) {
  const tests::NodePtr node = tests::First(m_document, "namespace::p");
  ASSERT_TRUE(node);
  EXPECT_EQ(nullptr, node->Handle());
}

TEST_F(SelectingNamespaceNodes, GivesEmptyTexts) {
  EXPECT_EQ("", m_document.GetSingleValue("namespace::p", nullptr));
  EXPECT_EQ(7, m_document.GetSingleValue("namespace::p", 7, nullptr));
  EXPECT_EQ(0.5, m_document.GetNumericValue("namespace::p", 0.5));
  EXPECT_THAT(m_document.GetMultipleValues("namespace::*"), IsEmpty());
}

}  // namespace
}  // namespace analytics
