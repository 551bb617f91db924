#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/XmlErrors.h"
#include "tests/support/XmlVersion.h"

namespace analytics {
namespace {

class ANewChild : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a>text<b/></a></r>"};
  DocumentNode m_parent = NodeAt(m_document, "a");
};

TEST_F(ANewChild, IsAppendedAsTheLast) {
  const tests::NodePtr child(m_parent.AddNewChild("c", "1"));
  ASSERT_TRUE(child);
  EXPECT_EQ("<c>1</c>", child->DumpToString());
  EXPECT_EQ("<r><a>text<b/><c>1</c></a></r>", RootDump(m_document));
}

TEST_F(ANewChild, IsAppendedAgainWhateverIsThere) {
  const tests::NodePtr first(m_parent.AddNewChild("b", 1));
  const tests::NodePtr second(m_parent.AddNewChild("b", 2));
  EXPECT_EQ("<a>text<b/><b>1</b><b>2</b></a>", m_parent.DumpToString());
}

TEST_F(ANewChild, IsFoundByQueries) {
  tests::NodePtr(m_parent.AddNewChild("c", "1")).reset();
  EXPECT_EQ("1", m_document.GetSingleValue("a/c", nullptr));
}

TEST_F(ANewChild, MayBeEmpty) {
  const tests::NodePtr child(m_parent.AddNewChild("c", ""));
  EXPECT_EQ("<c/>", child->DumpToString());
}

TEST_F(ANewChild, HoldsAnInteger) {
  const tests::NodePtr child(m_parent.AddNewChild("c", -7));
  ASSERT_TRUE(child);
  EXPECT_EQ("<c>-7</c>", child->DumpToString());
}

TEST_F(ANewChild, TakesItsTextUnescaped) {
  const tests::NodePtr child(m_parent.AddNewChild("c", "1 &amp; 2 &#65; <d>"));
  EXPECT_EQ("1 & 2 A <d>", child->GetValue());
  EXPECT_EQ("<c>1 &amp; 2 A &lt;d&gt;</c>", child->DumpToString());
}

TEST_F(ANewChild, LosesAnAmpersandThatStartsNoReferenceOrAllTextWithIt) {
  const tests::XmlErrors errors;
  const tests::NodePtr child(m_parent.AddNewChild("c", "1 & 2"));
  const bool isEmptied = tests::kXmlEmptiesTextAtAmpersand;
  EXPECT_EQ(isEmptied ? "<c/>" : "<c>1  2</c>", child->DumpToString());
  EXPECT_EQ(isEmptied, !errors.Codes().empty());
}

TEST_F(ANewChild, WithoutANameIsNotMadeAndGivesAnEmptyNode) {
  const std::string before = RootDump(m_document);
  const tests::NodePtr text(m_parent.AddNewChild("", "text"));
  const tests::NodePtr number(m_parent.AddNewChild("", 5));
  ASSERT_TRUE(text && number);
  EXPECT_EQ(nullptr, text->Handle());
  EXPECT_EQ(nullptr, number->Handle());
  EXPECT_EQ(before, RootDump(m_document));
}

TEST_F(ANewChild, OfAnAttributeOrTextIsNotMadeAndGivesAnEmptyNode) {
  ParsedDocument document("<r x='1'>text</r>");
  const tests::NodePtr ofAttribute(NodeAt(document, "@x").AddNewChild("c", "1"));
  const tests::NodePtr ofText(NodeAt(document, "text()").AddNewChild("c", 1));
  ASSERT_TRUE(ofAttribute && ofText);
  EXPECT_EQ(nullptr, ofAttribute->Handle());
  EXPECT_EQ(nullptr, ofText->Handle());
  EXPECT_EQ("<r x=\"1\">text</r>", RootDump(document));
}

TEST_F(ANewChild, TakesTheNamespaceOfItsParent) {
  ParsedDocument document("<p:r xmlns:p='urn:p'/>");
  const tests::NodePtr child(NodeAt(document, "/*").AddNewChild("x", 7));
  EXPECT_EQ("<p:x>7</p:x>", child->DumpToString());
  EXPECT_EQ("7",
            document.GetSingleValue("*[local-name()='x' and namespace-uri()='urn:p']", nullptr));
}

TEST_F(ANewChild, TakesTheDefaultNamespaceOfItsParent) {
  ParsedDocument document("<r xmlns='urn:d'/>");
  const tests::NodePtr child(NodeAt(document, "/*").AddNewChild("x", 7));
  EXPECT_EQ("<r xmlns=\"urn:d\"><x>7</x></r>", RootDump(document));
  EXPECT_EQ("7", document.GetSingleValue("*[namespace-uri()='urn:d']", nullptr));
}

TEST_F(ANewChild, KeepsAPrefixInItsNameAfterThatOfItsParent) {
  ParsedDocument document("<p:r xmlns:p='urn:p' xmlns:q='urn:q'/>");
  const tests::NodePtr child(NodeAt(document, "/*").AddNewChild("q:x", 7));
  EXPECT_EQ("<p:q:x>7</p:q:x>", child->DumpToString());
}

TEST_F(ANewChild, OfTheDocumentNodeIsAFurtherRootThatDoesNotParseAgain) {
  const tests::XmlErrors quiet;
  const tests::NodePtr child(NodeAt(m_document, "/").AddNewChild("x", 7));
  EXPECT_EQ("<x>7</x>", child->DumpToString());
  EXPECT_FALSE(Document().ParseString(m_document.DumpToString()));
}

TEST_F(ANewChild, OfACommentOrInstructionIsNotMadeAndGivesAnEmptyNode) {
  ParsedDocument document("<r><!--c--><?p?></r>");
  const tests::NodePtr ofComment(NodeAt(document, "comment()").AddNewChild("c", "1"));
  const tests::NodePtr ofInstruction(
      NodeAt(document, "processing-instruction()").AddNewChild("c", "1"));
  ASSERT_TRUE(ofComment && ofInstruction);
  EXPECT_EQ(nullptr, ofComment->Handle());
  EXPECT_EQ(nullptr, ofInstruction->Handle());
}

TEST_F(ANewChild, StaysInTheTreeWhenItsHandleIsDeleted) {
  tests::NodePtr child(m_parent.AddNewChild("c", "1"));
  child.reset();
  EXPECT_EQ("<a>text<b/><c>1</c></a>", m_parent.DumpToString());
}

TEST_F(ANewChild, TakesChildrenItself) {
  const tests::NodePtr child(m_parent.AddNewChild("c", ""));
  const tests::NodePtr grandchild(child->AddNewChild("d", 5));
  grandchild->SetProperty("x", 6);
  EXPECT_EQ("<c><d x=\"6\">5</d></c>", child->DumpToString());
}

}  // namespace
}  // namespace analytics
