#include <string>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

struct Row {
  const char* name;
  const char* text;  // of the document, whose element of local name "a" is put into a namespace
  const char* href;
  const char* prefix;
  const char* expected;  // dump of the element
};

const Row kRows[] = {
    {"OfTheRootElementIsReused", "<p:r xmlns:p='urn:p'><a/></p:r>", "urn:p", "p", "<p:a/>"},
    {"OfTheRootElementIsReusedWhateverThePrefix", "<p:r xmlns:p='urn:p'><a/></p:r>", "urn:p", "q",
     "<p:a/>"},
    {"OfTheRootElementIsReusedWithoutPrefix", "<p:r xmlns:p='urn:p'><a/></p:r>", "urn:p", "",
     "<p:a/>"},
    {"AsDefaultOfTheRootElementIsReused", "<r xmlns='urn:d'><a/></r>", "urn:d", "q", "<a/>"},
    {"DeclaredBehindThatOfTheRootElementIsReused",
     "<p:r xmlns:p='urn:p' xmlns:q='urn:q' xmlns:z='urn:z'><a/></p:r>", "urn:z", "y", "<z:a/>"},
    {"DeclaredBeforeThatOfTheRootElementIsDeclaredAgain",
     "<q:r xmlns:p='urn:p' xmlns:q='urn:q'><a/></q:r>", "urn:p", "p", "<p:a xmlns:p=\"urn:p\"/>"},
    {"DeclaredOnARootElementInNoNamespaceIsDeclaredAgain", "<r xmlns:p='urn:p'><a/></r>", "urn:p",
     "p", "<p:a xmlns:p=\"urn:p\"/>"},
    {"DeclaredOnAnotherAncestorIsDeclaredAgain",
     "<p:r xmlns:p='urn:p'><b xmlns:q='urn:q'><a/></b></p:r>", "urn:q", "q",
     "<q:a xmlns:q=\"urn:q\"/>"},
    {"OfAnotherSpellingIsDeclared", "<p:r xmlns:p='urn:p'><a/></p:r>", "URN:P", "p",
     "<p:a xmlns:p=\"URN:P\"/>"},
    {"ThatIsLongerIsDeclared", "<p:r xmlns:p='urn:p'><a/></p:r>", "urn:pp", "q",
     "<q:a xmlns:q=\"urn:pp\"/>"},
    {"ThatIsUnknownIsDeclaredWithItsPrefix", "<r><a/></r>", "urn:z", "z",
     "<z:a xmlns:z=\"urn:z\"/>"},
    {"ThatIsUnknownIsDeclaredAsDefaultWithoutPrefix", "<r><a/></r>", "urn:z", "",
     "<a xmlns=\"urn:z\"/>"},
    {"LeavesChildrenAndAttributesAlone", "<r><a x='1'><b/></a></r>", "urn:z", "z",
     R"(<z:a xmlns:z="urn:z" x="1"><b/></z:a>)"},
    {"ReplacesAFormerOne", "<r xmlns:p='urn:p'><p:a/></r>", "urn:z", "z",
     "<z:a xmlns:z=\"urn:z\"/>"},
    {"WithAPrefixThatTheNodeDeclaresIsRefused", "<r><a xmlns:p='urn:p'/></r>", "urn:z", "p",
     "<a xmlns:p=\"urn:p\"/>"},
    {"ThatTheNodeDeclaresItselfIsRefusedToo", "<r><p:a xmlns:p='urn:p'/></r>", "urn:p", "p",
     "<a xmlns:p=\"urn:p\"/>"},
    {"WithoutUriDeclaresNothing", "<r><a/></r>", "", "", "<a/>"},
    {"WithoutUriUsesAPrefixAllTheSame", "<r><a/></r>", "", "p", "<p:a/>"},
    {"WithoutUriLeavesADefaultNamespace", "<r xmlns='urn:d'><a/></r>", "", "", "<a/>"},
};

class TheNamespaceOfANode : public testing::TestWithParam<Row> {};

TEST_P(TheNamespaceOfANode, IsSet) {
  ParsedDocument document(GetParam().text);
  DocumentNode node = NodeAt(document, "//*[local-name()='a']");
  node.SetNs(GetParam().href, GetParam().prefix);
  EXPECT_EQ(GetParam().expected, node.DumpToString());
}

INSTANTIATE_TEST_SUITE_P(Rows, TheNamespaceOfANode, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

class SettingANamespace : public testing::Test {
 protected:
  ParsedDocument m_document{"<r><a x='1'/></r>"};
  DocumentNode m_node = NodeAt(m_document, "a");
};

TEST_F(SettingANamespace, IsSeenByQueries) {
  m_node.SetNs("urn:z", "z");
  EXPECT_EQ(1U, tests::All(m_document, "*[namespace-uri()='urn:z']").size());
  EXPECT_TRUE(tests::All(m_document, "a").empty());
}

TEST_F(SettingANamespace, TwiceWithTheSamePrefixLeavesTheNodeInNone) {
  m_node.SetNs("urn:y", "z");
  EXPECT_EQ("<z:a xmlns:z=\"urn:y\" x=\"1\"/>", m_node.DumpToString());
  m_node.SetNs("urn:z", "z");
  EXPECT_EQ("<a xmlns:z=\"urn:y\" x=\"1\"/>", m_node.DumpToString());
  EXPECT_EQ(1U, tests::All(m_document, "a").size());
}

TEST_F(SettingANamespace, TwiceWithDifferentPrefixesDeclaresBoth) {
  m_node.SetNs("urn:y", "y");
  m_node.SetNs("urn:z", "z");
  EXPECT_EQ("<z:a xmlns:y=\"urn:y\" xmlns:z=\"urn:z\" x=\"1\"/>", m_node.DumpToString());
}

TEST_F(SettingANamespace, OfTheRootElementMakesItReusable) {
  NodeAt(m_document, "/r").SetNs("urn:z", "z");
  m_node.SetNs("urn:z", "y");
  EXPECT_EQ("<z:r xmlns:z=\"urn:z\"><z:a x=\"1\"/></z:r>", RootDump(m_document));
}

TEST_F(SettingANamespace, OfAnAttributeReusesThatOfTheRootElement) {
  NodeAt(m_document, "/r").SetNs("urn:z", "z");
  DocumentNode attribute = NodeAt(m_document, "a/@x");
  attribute.SetNs("urn:z", "y");
  EXPECT_EQ(" z:x=\"1\"", attribute.DumpToString());
}

TEST_F(SettingANamespace, OfAnAttributeCannotDeclareOne) {
  DocumentNode attribute = NodeAt(m_document, "a/@x");
  attribute.SetNs("urn:z", "z");
  EXPECT_EQ("<a x=\"1\"/>", m_node.DumpToString());
}

TEST_F(SettingANamespace, ToNoneHoldsUntilItIsParsedUnderADefaultNamespace) {
  ParsedDocument document("<r xmlns='urn:d'><a/></r>");
  NodeAt(document, "*").SetNs("", "");
  ParsedDocument again(RootDump(document));
  EXPECT_EQ(1U, tests::All(document, "*[namespace-uri()='']").size());
  EXPECT_TRUE(tests::All(again, "*[namespace-uri()='']").empty());
}

TEST_F(SettingANamespace, WorksWithoutARootElement) {
  m_node.Unlink(false);
  ASSERT_EQ(1, m_document.DeleteNodes("/r"));
  m_node.SetNs("urn:z", "z");
  EXPECT_EQ("<z:a xmlns:z=\"urn:z\" x=\"1\"/>", m_node.DumpToString());
  m_node.Unlink(true);
}

TEST_F(SettingANamespace, TakesUriAndPrefixUpToTheirFirstNul) {
  m_node.SetNs(std::string("urn:z\0y", 7), std::string("z\0y", 3));
  EXPECT_EQ("<z:a xmlns:z=\"urn:z\" x=\"1\"/>", m_node.DumpToString());
}

/// An element that was moved away from where its namespace is declared.
class Reconciling : public testing::Test {
 protected:
  void MoveTo(Document& target) {
    DocumentNode parent = NodeAt(target, "/*");
    parent.AddChild(&m_moved);
  }

  ParsedDocument m_source{"<s xmlns:p='urn:p'><p:a p:x='1'><p:b/></p:a></s>"};
  DocumentNode m_moved = NodeAt(m_source, "*");
};

TEST_F(Reconciling, DeclaresWhatTheSubtreeUses) {
  ParsedDocument target("<t/>");
  MoveTo(target);
  EXPECT_EQ("<t><p:a p:x=\"1\"><p:b/></p:a></t>", RootDump(target));
  m_moved.ReconciliateNs();
  EXPECT_EQ("<t><p:a xmlns:p=\"urn:p\" p:x=\"1\"><p:b/></p:a></t>", RootDump(target));
}

TEST_F(Reconciling, UsesADeclarationAboveTheSubtree) {
  ParsedDocument target("<t xmlns:q='urn:p'/>");
  MoveTo(target);
  m_moved.ReconciliateNs();
  EXPECT_EQ("<t xmlns:q=\"urn:p\"><q:a q:x=\"1\"><q:b/></q:a></t>", RootDump(target));
}

TEST_F(Reconciling, ChoosesAnotherPrefixWhereTheOldOneIsTaken) {
  ParsedDocument target("<t xmlns:p='urn:other'/>");
  MoveTo(target);
  m_moved.ReconciliateNs();
  ParsedDocument readBack(RootDump(target));
  EXPECT_EQ(2U, tests::All(readBack, "//*[namespace-uri()='urn:p']").size());
  EXPECT_EQ(1U, tests::All(readBack, "//@*[namespace-uri()='urn:p']").size());
}

TEST_F(Reconciling, FreesTheSubtreeOfItsFormerDocument) {
  ParsedDocument target("<t/>");
  MoveTo(target);
  m_moved.ReconciliateNs();
  m_source.Close();
  EXPECT_EQ("<t><p:a xmlns:p=\"urn:p\" p:x=\"1\"><p:b/></p:a></t>", RootDump(target));
}

TEST_F(Reconciling, ChangesNothingWhereAllIsDeclared) {
  m_moved.ReconciliateNs();
  EXPECT_EQ("<s xmlns:p=\"urn:p\"><p:a p:x=\"1\"><p:b/></p:a></s>", RootDump(m_source));
}

}  // namespace
}  // namespace analytics
