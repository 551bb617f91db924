#include <string>

#include <gtest/gtest.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

class AHandle : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a>1</a><b>2</b></r>"};
};

TEST_F(AHandle, IsEmptyUnlessItIsGivenANode) { EXPECT_EQ(nullptr, DocumentNode().Handle()); }

TEST_F(AHandle, IsEmptyIfItIsGivenNull) { EXPECT_EQ(nullptr, DocumentNode(nullptr).Handle()); }

TEST_F(AHandle, KeepsTheNodeItIsGiven) {
  void* const a = NodeAt(m_document, "a").Handle();
  DocumentNode node(a);
  EXPECT_EQ(a, node.Handle());
  EXPECT_EQ("1", node.GetValue());
}

TEST_F(AHandle, IsLedToAnotherNode) {
  DocumentNode node = NodeAt(m_document, "a");
  node.Handle(NodeAt(m_document, "b").Handle());
  EXPECT_EQ("2", node.GetValue());
}

TEST_F(AHandle, IsEmptiedWithoutFreeingItsNode) {
  const FreedNodes freed;
  DocumentNode node = NodeAt(m_document, "a");
  const void* const a = node.Handle();
  node.Handle(nullptr);
  EXPECT_EQ(nullptr, node.Handle());
  EXPECT_EQ(0, freed.Count(a));
  EXPECT_EQ("<r><a>1</a><b>2</b></r>", RootDump(m_document));
}

TEST_F(AHandle, IsCopiedWithoutCopyingItsNode) {
  DocumentNode first = NodeAt(m_document, "a");
  DocumentNode second = first;
  EXPECT_EQ(first.Handle(), second.Handle());
  second.SetValue("3");
  EXPECT_EQ("3", first.GetValue());
}

TEST_F(AHandle, IsAssigned) {
  DocumentNode node = NodeAt(m_document, "a");
  node = NodeAt(m_document, "b");
  EXPECT_EQ("2", node.GetValue());
  EXPECT_EQ("<r><a>1</a><b>2</b></r>", RootDump(m_document));
}

TEST_F(AHandle, IsDestroyedWithoutFreeingItsNode) {
  const FreedNodes freed;
  const void* const a = NodeAt(m_document, "a").Handle();
  { const DocumentNode copy = NodeAt(m_document, "a"); }
  EXPECT_EQ(0, freed.Count(a));
  EXPECT_EQ("1", m_document.GetSingleValue("a", nullptr));
}

TEST_F(AHandle, OutlivesItsDocumentIfItIsNotUsed) {
  const tests::NodePtr node = tests::First(m_document, "a");
  m_document.Close();
  EXPECT_NE(nullptr, node->Handle());
}

TEST(AnEmptyNode, ReadsAsEmpty) {
  DocumentNode empty;
  EXPECT_EQ("", empty.GetValue());
  EXPECT_EQ("", empty.GetProperty("x"));
  EXPECT_EQ("", empty.DumpToString());
}

TEST(AnEmptyNode, GivesTheDefaultNumbers) {
  DocumentNode empty;
  EXPECT_EQ(7, empty.GetValue(7));
  EXPECT_EQ(7, empty.GetProperty("x", 7));
  EXPECT_EQ(0.1, empty.GetNumericProperty("x", 0.1));
}

TEST(AnEmptyNode, TakesNoValue) {
  DocumentNode empty;
  empty.SetValue("text");
  empty.SetValue(5);
  empty.SetProperty("x", "text");
  empty.SetProperty("x", 5);
  EXPECT_EQ(nullptr, empty.Handle());
}

TEST(AnEmptyNode, TakesNoChild) {
  ParsedDocument document("<r><a/></r>");
  DocumentNode a = NodeAt(document, "a");
  DocumentNode empty;
  EXPECT_EQ(nullptr, empty.AddNewChild("x", "text"));
  EXPECT_EQ(nullptr, empty.AddNewChild("x", 5));
  EXPECT_EQ(nullptr, empty.AddNewChild("", ""));
  empty.AddChild(&a);
  empty.AddChild(nullptr);
  EXPECT_EQ("<r><a/></r>", RootDump(document));
}

TEST(AnEmptyNode, IsNeitherUnlinkedNorPutIntoANamespace) {
  DocumentNode empty;
  empty.Unlink(false);
  empty.Unlink(true);
  empty.SetNs("urn:n", "p");
  empty.ReconciliateNs();
  EXPECT_EQ(nullptr, empty.Handle());
}

}  // namespace
}  // namespace analytics
