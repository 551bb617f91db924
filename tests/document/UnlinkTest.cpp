#include <string>

#include <gtest/gtest.h>

#include "tests/document/FreedNodes.h"
#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

class Unlinking : public testing::Test {
 protected:
  ParsedDocument m_document{"<r>1<a x='2'><b>3</b></a>4</r>"};
  DocumentNode m_a = NodeAt(m_document, "a");
  void* const m_handle = m_a.Handle();
  const FreedNodes m_freed;
};

TEST_F(Unlinking, WithFreeingRemovesTheNodeAndEmptiesTheHandle) {
  m_a.Unlink(true);
  EXPECT_EQ(nullptr, m_a.Handle());
  EXPECT_EQ("<r>14</r>", RootDump(m_document));
  EXPECT_EQ(1, m_freed.Count(m_handle));
}

TEST_F(Unlinking, WithFreeingASecondTimeDoesNothing) {
  m_a.Unlink(true);
  m_a.Unlink(true);
  EXPECT_EQ(1, m_freed.Count(m_handle));
  EXPECT_EQ("<r>14</r>", RootDump(m_document));
}

TEST_F(Unlinking, WithFreeingFreesTheSubtree) {
  const void* const child = NodeAt(m_document, "a/b").Handle();
  m_a.Unlink(true);
  EXPECT_EQ(1, m_freed.Count(child));
}

TEST_F(Unlinking, WithoutFreeingKeepsTheNodeInTheHandle) {
  m_a.Unlink(false);
  EXPECT_EQ(m_handle, m_a.Handle());
  EXPECT_EQ("<a x=\"2\"><b>3</b></a>", m_a.DumpToString());
  EXPECT_EQ("<r>14</r>", RootDump(m_document));
  EXPECT_EQ(0, m_freed.Count(m_handle));
  m_a.Unlink(true);
}

TEST_F(Unlinking, WithoutFreeingASecondTimeDoesNothing) {
  m_a.Unlink(false);
  m_a.Unlink(false);
  EXPECT_EQ("<a x=\"2\"><b>3</b></a>", m_a.DumpToString());
  m_a.Unlink(true);
}

TEST_F(Unlinking, WithoutFreeingLeavesTheNodeToBeFreedLater) {
  m_a.Unlink(false);
  m_a.Unlink(true);
  EXPECT_EQ(nullptr, m_a.Handle());
  EXPECT_EQ(1, m_freed.Count(m_handle));
}

TEST_F(Unlinking, WithoutFreeingLeavesTheNodeToBePutBack) {
  m_a.Unlink(false);
  NodeAt(m_document, "/r").AddChild(&m_a);
  EXPECT_EQ("<r>14<a x=\"2\"><b>3</b></a></r>", RootDump(m_document));
}

TEST_F(Unlinking, WithoutFreeingLetsTheDetachedNodeBeEdited) {
  m_a.Unlink(false);
  m_a.SetProperty("x", 5);
  const tests::NodePtr child(m_a.AddNewChild("c", 6));
  EXPECT_EQ("<a x=\"5\"><b>3</b><c>6</c></a>", m_a.DumpToString());
  m_a.Unlink(true);
}

TEST_F(Unlinking, RemovesAnAttribute) {
  DocumentNode attribute = NodeAt(m_document, "a/@x");
  attribute.Unlink(true);
  EXPECT_EQ(nullptr, attribute.Handle());
  EXPECT_EQ("<a><b>3</b></a>", m_a.DumpToString());
}

TEST_F(Unlinking, RemovesAText) {
  NodeAt(m_document, "a/b/text()").Unlink(true);
  EXPECT_EQ("<a x=\"2\"><b/></a>", m_a.DumpToString());
}

TEST_F(Unlinking, RemovesTheRootElement) {
  NodeAt(m_document, "/r").Unlink(true);
  EXPECT_EQ("<?xml version=\"1.0\"?>\n", m_document.DumpToString());
}

TEST_F(Unlinking, LeavesTheDocumentNodeToItsDocument) {
  DocumentNode above = NodeAt(m_document, "/");
  const void* const handle = above.Handle();
  above.Unlink(true);
  EXPECT_EQ(nullptr, above.Handle());
  EXPECT_EQ(0, m_freed.Count(handle));
  EXPECT_EQ("3", m_document.GetSingleValue("a/b", nullptr));
}

TEST_F(Unlinking, DoesNotDetachTheDocumentNode) {
  DocumentNode above = NodeAt(m_document, "/");
  above.Unlink(false);
  EXPECT_EQ(above.Handle(), NodeAt(m_document, "/").Handle());
  EXPECT_EQ("3", m_document.GetSingleValue("a/b", nullptr));
}

}  // namespace
}  // namespace analytics
