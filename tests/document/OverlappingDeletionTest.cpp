#include <string>

#include <gtest/gtest.h>

#include "tests/document/TestDocuments.h"

namespace analytics {
namespace {

/// A selection in which some nodes lie inside others that are freed as well.
struct Overlap {
  const char* name;
  const char* text;
  const char* path;
  int freed;
  const char* left;
};

const char kNested[] = "<r><a x='1'>t<b y='2'>u<c/></b></a><a x='3'/>v</r>";
const char kWithPrefix[] = "<r xmlns:p='urn:p'><a x='1'>t<b/></a><a/></r>";

const Overlap kOverlaps[] = {
    {"ElementAndChild", kNested, "//a | //a/b", 3, "<r>v</r>"},
    {"ChildAndElement", kNested, "//a/b | //a", 3, "<r>v</r>"},
    {"ElementAndAttribute", kNested, "//a | //a/@x", 4, "<r>v</r>"},
    {"AttributeAndElement", kNested, "//@x | //a", 4, "<r>v</r>"},
    {"ElementAndText", kNested, "//a | //a/text() | //b/text()", 4, "<r>v</r>"},
    {"ElementChildAttributeAndText", kNested, "//a | //a/b | //a/@x | //a/b/text()", 6, "<r>v</r>"},
    {"DeepestFirst", kNested, "//c | //@y | //b | //@x | //a", 7, "<r>v</r>"},
    {"AllNodes", kNested, "/r//node()", 7, "<r/>"},
    {"AllNodesAndAttributes", kNested, "/r//node() | //@*", 10, "<r/>"},
    // Namespace nodes: "xml" at every element, "p" at every element of the second text.
    {"ElementAndItsNamespaces", kNested, "//a | //a/namespace::*", 4, "<r>v</r>"},
    {"NamespacesOnly", kWithPrefix, "//a/namespace::*", 4,
     R"(<r xmlns:p="urn:p"><a x="1">t<b/></a><a/></r>)"},
    {"ElementAndDeclaredNamespaces", kWithPrefix, "//a | //a/namespace::*", 6,
     "<r xmlns:p=\"urn:p\"/>"},
    {"NamespacesAndElement", kWithPrefix, "//a/namespace::* | //a", 6, "<r xmlns:p=\"urn:p\"/>"},
    {"NestedElementsAndNamespaces", kWithPrefix, "//a | //b | //a/namespace::*", 7,
     "<r xmlns:p=\"urn:p\"/>"},
    {"ChildNamespacesAndParent", kWithPrefix, "//b | //b/namespace::* | //a", 5,
     "<r xmlns:p=\"urn:p\"/>"},
    {"AttributeNamespacesAndElement", kWithPrefix, "//@x | //a/namespace::* | //a", 7,
     "<r xmlns:p=\"urn:p\"/>"},
    {"TextNamespacesAndElement", kWithPrefix, "//text() | //b/namespace::* | //a", 5,
     "<r xmlns:p=\"urn:p\"/>"},
    {"AllOfEverything", kWithPrefix, "//@* | //namespace::* | /r//node()", 13,
     "<r xmlns:p=\"urn:p\"/>"},
};

class ASelectionThatOverlaps : public testing::TestWithParam<Overlap> {};

TEST_P(ASelectionThatOverlaps, IsFreedNodeByNodeAndCounted) {
  ParsedDocument document(GetParam().text);
  EXPECT_EQ(GetParam().freed, document.DeleteNodes(GetParam().path));
  EXPECT_EQ(GetParam().left, RootDump(document));
}

TEST_P(ASelectionThatOverlaps, LeavesADocumentThatGoesOnWorking) {
  ParsedDocument document(GetParam().text);
  document.DeleteNodes(GetParam().path);
  const tests::NodePtr child(NodeAt(document, "/r").AddNewChild("new", "text"));
  EXPECT_EQ("text", document.GetSingleValue("new", nullptr));
}

INSTANTIATE_TEST_SUITE_P(Rows, ASelectionThatOverlaps, testing::ValuesIn(kOverlaps),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
