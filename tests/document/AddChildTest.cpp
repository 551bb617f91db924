#include <string>

#include <gmock/gmock.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

using testing::ElementsAre;

class AddingANode : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a><b>1</b></a><c x='2'/><d/></r>"};
  DocumentNode m_root = NodeAt(m_document, "/r");
  DocumentNode m_a = NodeAt(m_document, "a");
  DocumentNode m_b = NodeAt(m_document, "a/b");
  DocumentNode m_c = NodeAt(m_document, "c");
  const std::string m_before = RootDump(m_document);
};

TEST_F(AddingANode, AppendsADetachedNodeAsTheLastChild) {
  m_a.Unlink(false);
  m_root.AddChild(&m_a);
  EXPECT_EQ("<r><c x=\"2\"/><d/><a><b>1</b></a></r>", RootDump(m_document));
  EXPECT_EQ("1", m_document.GetSingleValue("a/b", nullptr));
}

TEST_F(AddingANode, MovesANodeThatIsLinkedElsewhere) {
  m_c.AddChild(&m_b);
  EXPECT_EQ("<r><a/><c x=\"2\"><b>1</b></c><d/></r>", RootDump(m_document));
}

TEST_F(AddingANode, MovesANodeUpToAnAncestor) {
  m_root.AddChild(&m_b);
  EXPECT_EQ("<r><a/><c x=\"2\"/><d/><b>1</b></r>", RootDump(m_document));
}

TEST_F(AddingANode, MovesANodeWithItsSubtree) {
  m_c.AddChild(&m_a);
  EXPECT_EQ("<r><c x=\"2\"><a><b>1</b></a></c><d/></r>", RootDump(m_document));
  EXPECT_THAT(m_document.GetMultipleValues("//b"), ElementsAre("1"));
}

TEST_F(AddingANode, LeavesBothHandlesOnTheirNodes) {
  void* const b = m_b.Handle();
  m_c.AddChild(&m_b);
  EXPECT_EQ(b, m_b.Handle());
  EXPECT_EQ("<b>1</b>", m_b.DumpToString());
  EXPECT_EQ("<c x=\"2\"><b>1</b></c>", m_c.DumpToString());
}

TEST_F(AddingANode, FreesNothing) {
  const FreedNodes freed;
  m_c.AddChild(&m_b);
  EXPECT_EQ(0, freed.Count(m_b.Handle()));
}

TEST_F(AddingANode, KeepsThePlaceOfAChildThatIsHereAlready) {
  m_root.AddChild(&m_a);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(AddingANode, DoesNothingForTheNodeItself) {
  m_a.AddChild(&m_a);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(AddingANode, DoesNothingForAnAncestor) {
  m_b.AddChild(&m_a);
  m_b.AddChild(&m_root);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(AddingANode, DoesNothingForTheDocumentNode) {
  DocumentNode above = NodeAt(m_document, "/");
  m_b.AddChild(&above);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(AddingANode, DoesNothingForADetachedAncestor) {
  m_a.Unlink(false);
  m_b.AddChild(&m_a);
  EXPECT_EQ("<a><b>1</b></a>", m_a.DumpToString());
  m_a.Unlink(true);
}

TEST_F(AddingANode, DoesNothingForNullOrAnEmptyNode) {
  DocumentNode empty;
  m_a.AddChild(nullptr);
  m_a.AddChild(&empty);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(AddingANode, MovesAnAttribute) {
  DocumentNode attribute = NodeAt(m_document, "c/@x");
  m_a.AddChild(&attribute);
  EXPECT_EQ("<r><a x=\"2\"><b>1</b></a><c/><d/></r>", RootDump(m_document));
}

TEST_F(AddingANode, MovesAnAttributeInPlaceOfOneOfItsName) {
  m_a.SetProperty("x", "former");
  DocumentNode attribute = NodeAt(m_document, "c/@x");
  m_a.AddChild(&attribute);
  EXPECT_EQ("<r><a x=\"2\"><b>1</b></a><c/><d/></r>", RootDump(m_document));
}

TEST_F(AddingANode, FreesTheAttributeInWhosePlaceItPutsOne) {
  m_a.SetProperty("x", "previous");
  const void* const previous = NodeAt(m_document, "a/@x").Handle();
  DocumentNode attribute = NodeAt(m_document, "c/@x");
  const FreedNodes freed;
  m_a.AddChild(&attribute);
  EXPECT_EQ(1, freed.Count(previous));
}

TEST_F(AddingANode, ToANodeThatIsNoElementIsNotSaved) {
  ParsedDocument document("<r x='1'>t<a/><b/><c/><!--k--></r>");
  DocumentNode a = NodeAt(document, "a"), b = NodeAt(document, "b"), c = NodeAt(document, "c");
  NodeAt(document, "text()").AddChild(&a);
  NodeAt(document, "@x").AddChild(&b);
  NodeAt(document, "comment()").AddChild(&c);
  EXPECT_EQ("<r x=\"1\">t<!--k--></r>", RootDump(document));
}

TEST_F(AddingANode, MovesATextThatFollowsAnElement) {
  DocumentNode text = NodeAt(m_document, "a/b/text()");
  m_root.AddChild(&text);
  EXPECT_EQ("<r><a><b/></a><c x=\"2\"/><d/>1</r>", RootDump(m_document));
  EXPECT_EQ("1", text.DumpToString());
}

TEST_F(AddingANode, MergesATextThatFollowsAText) {
  m_c.SetValue("former");
  DocumentNode text = NodeAt(m_document, "a/b/text()");
  const void* const handle = text.Handle();
  const FreedNodes freed;
  m_c.AddChild(&text);
  EXPECT_EQ("<c x=\"2\">former1</c>", m_c.DumpToString());
  EXPECT_EQ(1U, tests::All(m_document, "c/text()").size());
  EXPECT_EQ(1, freed.Count(handle));
}

/// Moving a node from one document to another.
class AddingANodeOfAnotherDocument : public testing::Test {
 protected:
  ParsedDocument m_source{"<s><moved name='value'>text<deep>er</deep><?pi?></moved><stays/></s>"};
  ParsedDocument m_target{"<t><child/></t>"};
  DocumentNode m_moved = NodeAt(m_source, "moved");
};

TEST_F(AddingANodeOfAnotherDocument, MovesIt) {
  NodeAt(m_target, "/t").AddChild(&m_moved);
  EXPECT_EQ("<s><stays/></s>", RootDump(m_source));
  EXPECT_EQ("<t><child/><moved name=\"value\">text<deep>er</deep><?pi?></moved></t>",
            RootDump(m_target));
}

TEST_F(AddingANodeOfAnotherDocument, LetsItOutliveItsFormerDocument) {
  NodeAt(m_target, "child").AddChild(&m_moved);
  m_source.Close();
  EXPECT_EQ("er", m_target.GetSingleValue("child/moved/deep", nullptr));
  EXPECT_EQ("value", m_moved.GetProperty("name"));
}

TEST_F(AddingANodeOfAnotherDocument, LetsItDieWithItsNewDocument) {
  const void* const handle = m_moved.Handle();
  const FreedNodes freed;
  NodeAt(m_target, "/t").AddChild(&m_moved);
  m_source.Close();
  EXPECT_EQ(0, freed.Count(handle));
  m_target.Close();
  EXPECT_EQ(1, freed.Count(handle));
}

TEST_F(AddingANodeOfAnotherDocument, MovesItsRootElement) {
  DocumentNode root = NodeAt(m_source, "/s");
  NodeAt(m_target, "child").AddChild(&root);
  EXPECT_EQ(nullptr, tests::NodePtr(m_source.SelectRootNode())->Handle());
  EXPECT_EQ("er", m_target.GetSingleValue("child/s/moved/deep", nullptr));
}

TEST_F(AddingANodeOfAnotherDocument, DoesNothingForItsDocumentNode) {
  DocumentNode document = NodeAt(m_source, "/");
  NodeAt(m_target, "/t").AddChild(&document);
  EXPECT_EQ("<t><child/></t>", RootDump(m_target));
  EXPECT_EQ("er", m_source.GetSingleValue("moved/deep", nullptr));
}

TEST_F(AddingANodeOfAnotherDocument, KeepsItsNamespaceOnceThatIsReconciled) {
  ASSERT_TRUE(m_source.ParseString("<s xmlns:p='urn:p'><p:moved/></s>"));
  DocumentNode moved = NodeAt(m_source, "*");
  NodeAt(m_target, "/t").AddChild(&moved);
  moved.ReconciliateNs();
  m_source.Close();
  EXPECT_EQ("<p:moved xmlns:p=\"urn:p\"/>", moved.DumpToString());
}

TEST_F(AddingANodeOfAnotherDocument, MovesADetachedOne) {
  m_moved.Unlink(false);
  NodeAt(m_target, "/t").AddChild(&m_moved);
  m_source.Close();
  EXPECT_EQ("er", m_target.GetSingleValue("moved/deep", nullptr));
}

}  // namespace
}  // namespace analytics
