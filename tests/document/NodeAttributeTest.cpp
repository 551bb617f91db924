#include <string>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

class ANodesAttribute : public testing::Test {
 protected:
  ParsedDocument m_document{
      "<r xmlns:p='urn:p'><a x='1' empty='' blank=' ' p:y='2' w='0.25 m' word='x'>t</a></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
  const std::string m_before = RootDump(m_document);
};

TEST_F(ANodesAttribute, IsReadByName) { EXPECT_EQ("1", m_node.GetProperty("x")); }

TEST_F(ANodesAttribute, IsEmptyIfItIsAbsent) {
  EXPECT_EQ("", m_node.GetProperty("absent"));
  EXPECT_EQ(7, m_node.GetProperty("absent", 7));
  EXPECT_EQ(1.5, m_node.GetNumericProperty("absent", 1.5));
}

TEST_F(ANodesAttribute, MayBeEmpty) {
  EXPECT_EQ("", m_node.GetProperty("empty"));
  EXPECT_EQ(7, m_node.GetProperty("empty", 7));
  EXPECT_EQ(1.5, m_node.GetNumericProperty("empty", 1.5));
}

TEST_F(ANodesAttribute, MayBeBlank) {
  EXPECT_EQ(" ", m_node.GetProperty("blank"));
  EXPECT_EQ(7, m_node.GetProperty("blank", 7));
  EXPECT_EQ(1.5, m_node.GetNumericProperty("blank", 1.5));
}

TEST_F(ANodesAttribute, WithoutANameReadsAsEmpty) {
  EXPECT_EQ("", m_node.GetProperty(""));
  EXPECT_EQ(5, m_node.GetProperty("", 5));
  EXPECT_EQ(1.5, m_node.GetNumericProperty("", 1.5));
}

TEST_F(ANodesAttribute, WhoseNameIsEmptyIsNotFound) {
  m_node.SetProperty(std::string("\0x", 2), "8");
  ASSERT_EQ("8", m_node.GetProperty(std::string("\0x", 2)));
  EXPECT_EQ("", m_node.GetProperty(""));
  EXPECT_EQ(5, m_node.GetProperty("", 5));
  EXPECT_EQ(1.5, m_node.GetNumericProperty("", 1.5));
}

TEST_F(ANodesAttribute, IsANumber) {
  EXPECT_EQ(1, m_node.GetProperty("x", 7));
  EXPECT_EQ(0.25, m_node.GetNumericProperty("w", 1.5));
}

TEST_F(ANodesAttribute, ThatIsAWordIsZeroAsANumber) {
  EXPECT_EQ(0, m_node.GetProperty("word", 7));
  EXPECT_EQ(0.0, m_node.GetNumericProperty("word", 1.5));
}

TEST_F(ANodesAttribute, OfANamespaceIsReadByItsLocalName) {
  EXPECT_EQ("2", m_node.GetProperty("y"));
  EXPECT_EQ("", m_node.GetProperty("p:y"));
}

TEST_F(ANodesAttribute, IsTheFirstOfItsLocalName) {
  m_node.SetProperty("y", "3");
  EXPECT_EQ("2", m_node.GetProperty("y"));
  EXPECT_EQ("3", m_document.GetSingleValue("a/@y", nullptr));
}

TEST_F(ANodesAttribute, WithAPrefixThatIsDeclaredIsSetInItsNamespace) {
  m_node.SetProperty("p:y", "3");
  EXPECT_EQ("3", m_node.GetProperty("y"));
  EXPECT_EQ(1U, tests::All(m_document, "a/@*[namespace-uri()='urn:p']").size());
}

TEST_F(ANodesAttribute, WithAPrefixThatIsNotDeclaredIsSetUnderThatName) {
  m_node.SetProperty("q:y", "3");
  EXPECT_EQ("3", m_node.GetProperty("q:y"));
  EXPECT_EQ("2", m_node.GetProperty("y"));
}

TEST_F(ANodesAttribute, IsNamedUpToTheFirstNul) {
  EXPECT_EQ("1", m_node.GetProperty(std::string("x\0y", 3)));
  EXPECT_EQ("", m_node.GetProperty(std::string("\0x", 2)));
}

TEST_F(ANodesAttribute, IsNotInheritedFromAnAncestor) {
  const tests::NodePtr child(m_node.AddNewChild("b", ""));
  EXPECT_EQ("", child->GetProperty("x"));
}

TEST_F(ANodesAttribute, HasItsEntitiesSubstituted) {
  ParsedDocument document("<!DOCTYPE r [<!ENTITY e 'z'>]><r k='1&e;2&amp;&#65;'/>");
  EXPECT_EQ("1z2&A", NodeAt(document, "/r").GetProperty("k"));
}

TEST_F(ANodesAttribute, IsAdded) {
  m_node.SetProperty("new", "value");
  EXPECT_EQ("value", m_node.GetProperty("new"));
  EXPECT_EQ("value", m_document.GetSingleValue("a/@new", nullptr));
}

TEST_F(ANodesAttribute, IsReplaced) {
  m_node.SetProperty("x", "2");
  EXPECT_EQ("2", m_node.GetProperty("x"));
  EXPECT_EQ(1U, tests::All(m_document, "a/@x").size());
}

TEST_F(ANodesAttribute, IsReplacedByAnInteger) {
  m_node.SetProperty("x", -42);
  EXPECT_EQ("-42", m_node.GetProperty("x"));
}

TEST_F(ANodesAttribute, IsKeptWithAnEmptyValue) {
  ParsedDocument document("<r><a x='1'/></r>");
  DocumentNode node = NodeAt(document, "a");
  node.SetProperty("x", "");
  node.SetProperty("y", "");
  EXPECT_EQ("<a x=\"\" y=\"\"/>", node.DumpToString());
}

TEST_F(ANodesAttribute, IsTakenEscapedUnlikeText) {
  m_node.SetProperty("x", "1 & 2 &amp; <\">");
  EXPECT_EQ("1 & 2 &amp; <\">", m_node.GetProperty("x"));
}

TEST_F(ANodesAttribute, WithoutANameIsNotSet) {
  m_node.SetProperty("", "value");
  m_node.SetProperty("", 3);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(ANodesAttribute, IsNotFoundAtATextNode) {
  DocumentNode text = NodeAt(m_document, "a/text()");
  EXPECT_EQ("", text.GetProperty("x"));
  EXPECT_EQ(7, text.GetProperty("x", 7));
}

TEST_F(ANodesAttribute, IsNotSetAtATextNode) {
  NodeAt(m_document, "a/text()").SetProperty("new", "value");
  NodeAt(m_document, "a/text()").SetProperty("new", 5);
  EXPECT_EQ(m_before, RootDump(m_document));
}

TEST_F(ANodesAttribute, LeavesOtherAttributesWhenItIsSet) {
  ParsedDocument document("<r x='1' y='2'/>");
  NodeAt(document, "/r").SetProperty("x", "3");
  EXPECT_EQ("<r x=\"3\" y=\"2\"/>", RootDump(document));
}

}  // namespace
}  // namespace analytics
