#include <string>

#include <gmock/gmock.h>
#include <libxml/tree.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

const char kNested[] =
    "<r xmlns='urn:default' xmlns:p='urn:outer'>"
    "<a xmlns:q='urn:q'><b xmlns:p='urn:inner' x='1'>text</b></a></r>";

std::string UriOf(void* ns) {
  return ns ? reinterpret_cast<const char*>(static_cast<xmlNs*>(ns)->href) : "none";
}

/// Looks namespaces up and keeps what is printed meanwhile.
class LookingUpANamespace : public testing::Test {
 protected:
  void* AtRoot(const std::string& prefix) {
    testing::internal::CaptureStdout();
    void* const found = m_document.GetNs(prefix);
    m_printed = testing::internal::GetCapturedStdout();
    return found;
  }

  void* At(DocumentNode* node, const std::string& prefix) {
    testing::internal::CaptureStdout();
    void* const found = m_document.GetNs(prefix, node);
    m_printed = testing::internal::GetCapturedStdout();
    return found;
  }

  DocumentNode Inner() { return NodeAt(m_document, "//*[local-name()='b']"); }

  ParsedDocument m_document{kNested};
  std::string m_printed;
};

TEST_F(LookingUpANamespace, FindsAPrefixOfTheRootElement) {
  EXPECT_EQ("urn:outer", UriOf(AtRoot("p")));
  EXPECT_EQ("", m_printed);
}

TEST_F(LookingUpANamespace, GivesTheRecordInTheTree) {
  const xmlNs* const first = static_cast<xmlNodePtr>(NodeAt(m_document, "/*").Handle())->nsDef;
  EXPECT_EQ(first->next, AtRoot("p"));
  EXPECT_EQ(AtRoot("p"), AtRoot("p"));
}

TEST_F(LookingUpANamespace, DoesNotLookBelowTheRootElement) {
  EXPECT_EQ(nullptr, AtRoot("q"));
  EXPECT_EQ("**** Didn't find the q name space with the root node\n", m_printed);
}

TEST_F(LookingUpANamespace, PrintsAPrefixThatTheRootElementLacks) {
  EXPECT_EQ(nullptr, AtRoot("nosuch"));
  EXPECT_EQ("**** Didn't find the nosuch name space with the root node\n", m_printed);
}

TEST_F(LookingUpANamespace, PrintsOneLineALookUp) {
  testing::internal::CaptureStdout();
  m_document.GetNs("x");
  m_document.GetNs("y");
  EXPECT_EQ(
      "**** Didn't find the x name space with the root node\n"
      "**** Didn't find the y name space with the root node\n",
      testing::internal::GetCapturedStdout());
}

TEST_F(LookingUpANamespace, TakesAnEmptyPrefixForAnUnknownOneNotForTheDefaultNamespace) {
  DocumentNode root = NodeAt(m_document, "/*");
  EXPECT_EQ(nullptr, AtRoot(""));
  EXPECT_EQ("**** Didn't find the  name space with the root node\n", m_printed);
  EXPECT_EQ(nullptr, At(&root, ""));
  EXPECT_EQ("**** Didn't find the  name space with the given node\n", m_printed);
}

TEST_F(LookingUpANamespace, PrintsAPrefixLiterally) {
  EXPECT_EQ(nullptr, AtRoot("%s%n%d"));
  EXPECT_EQ("**** Didn't find the %s%n%d name space with the root node\n", m_printed);
}

TEST_F(LookingUpANamespace, TakesThePrefixUpToItsFirstNul) {
  EXPECT_EQ("urn:outer", UriOf(AtRoot(std::string("p\0q", 3))));
  EXPECT_EQ(nullptr, AtRoot(std::string("x\0p", 3)));
  EXPECT_EQ("**** Didn't find the x name space with the root node\n", m_printed);
}

TEST_F(LookingUpANamespace, ComparesPrefixesByCase) { EXPECT_EQ(nullptr, AtRoot("P")); }

TEST_F(LookingUpANamespace, AlwaysFindsXml) {
  EXPECT_EQ("http://www.w3.org/XML/1998/namespace", UriOf(AtRoot("xml")));
  EXPECT_EQ("", m_printed);
}

TEST_F(LookingUpANamespace, FailsOnceTheRootElementIsDeleted) {
  ASSERT_EQ(1, m_document.DeleteNodes("/*"));
  EXPECT_EQ(nullptr, AtRoot("p"));
  EXPECT_EQ("**** Didn't find the p name space with the root node\n", m_printed);
}

TEST_F(LookingUpANamespace, AtANodeFindsTheInnermostDeclaration) {
  DocumentNode inner = Inner();
  EXPECT_EQ("urn:inner", UriOf(At(&inner, "p")));
  EXPECT_EQ("", m_printed);
}

TEST_F(LookingUpANamespace, AtANodeFindsTheDeclarationOfAnAncestor) {
  DocumentNode inner = Inner();
  EXPECT_EQ("urn:q", UriOf(At(&inner, "q")));
}

TEST_F(LookingUpANamespace, AtAnAttributeOrTextLooksAboveIt) {
  DocumentNode attribute = NodeAt(m_document, "//@x");
  DocumentNode text = NodeAt(m_document, "//text()");
  EXPECT_EQ("urn:inner", UriOf(At(&attribute, "p")));
  EXPECT_EQ("urn:inner", UriOf(At(&text, "p")));
}

TEST_F(LookingUpANamespace, AtANodePrintsAPrefixThatIsNotInScope) {
  DocumentNode root = NodeAt(m_document, "/*");
  EXPECT_EQ(nullptr, At(&root, "q"));
  EXPECT_EQ("**** Didn't find the q name space with the given node\n", m_printed);
}

TEST_F(LookingUpANamespace, AtAnEmptyNodePrintsThePrefix) {
  DocumentNode empty;
  EXPECT_EQ(nullptr, At(&empty, "p"));
  EXPECT_EQ("**** Didn't find the p name space with the given node\n", m_printed);
}

TEST_F(LookingUpANamespace, AtNoNodeGivesNothingAndPrintsNothing) {
  EXPECT_EQ(nullptr, At(nullptr, "p"));
  EXPECT_EQ("", m_printed);
}

TEST_F(LookingUpANamespace, InAClosedDocumentGivesNothingAndPrintsNothing) {
  ParsedDocument other(kNested);
  DocumentNode node = NodeAt(other, "/*");
  m_document.Close();
  EXPECT_EQ(nullptr, AtRoot("p"));
  EXPECT_EQ("", m_printed);
  EXPECT_EQ(nullptr, At(&node, "p"));
  EXPECT_EQ("", m_printed);
  EXPECT_EQ(nullptr, At(nullptr, "p"));
  EXPECT_EQ("", m_printed);
}

}  // namespace
}  // namespace analytics
