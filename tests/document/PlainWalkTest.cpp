#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <libxml/xpathInternals.h>

#include "document/XmlText.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Whether libxml2 is asked for what a path selects, which takes memory of it.
bool IsLibxml2Asked(Document& document, const std::string& path, DocumentNode* context = nullptr) {
  const tests::FailingXmlMemory noMemory(1, tests::Shortage::kOnce);
  tests::All(document, path, context);
  return noMemory.Failures() > 0;
}

xmlNodePtr Raw(DocumentNode& node) { return static_cast<xmlNodePtr>(node.Handle()); }

TEST(AWalk, GivesNestedMatchesInDocumentOrder) {
  ParsedDocument document("<r><a><b>1</b><a><b>2</b></a><b>3</b></a><b>no</b></r>");
  EXPECT_THAT(document.GetMultipleValues("//a/b", nullptr), ElementsAre("1", "2", "3"));
}

TEST(AWalk, GivesAnyNumberOfMatchesInDocumentOrder) {
  std::string text;
  std::vector<std::string> expected;
  for (int number = 1; number <= 100; ++number) {
    ParsedDocument document("<r>" + (text += "<b>" + std::to_string(number) + "</b>") + "</r>");
    expected.push_back(std::to_string(number));
    EXPECT_EQ(expected, document.GetMultipleValues("b", nullptr));
    EXPECT_EQ(expected, document.GetMultipleValues("//b", nullptr));
  }
}

TEST(AWalk, StaysBelowItsStart) {
  ParsedDocument document("<r><a><b>1</b></a><a><b>2</b></a><b>3</b></r>");
  DocumentNode first = NodeAt(document, "a");
  EXPECT_THAT(document.GetMultipleValues("b", &first), ElementsAre("1"));
}

TEST(AWalk, BeginsAtTheDocumentForAPathFromAnywhere) {
  ParsedDocument document("<b>1<a/></b>");
  DocumentNode inner = NodeAt(document, "a");
  EXPECT_EQ("1", document.GetSingleValue("//b", &inner));
}

TEST(AWalk, FromAnywhereIsNotTheStartsDocumentButTheOneAsked) {
  ParsedDocument document("<r><b>mine</b></r>");
  ParsedDocument other("<r><b>other</b></r>");
  DocumentNode foreign = NodeAt(other, "/r");
  EXPECT_EQ("mine", document.GetSingleValue("//b", &foreign));
  EXPECT_EQ("other", document.GetSingleValue("b", &foreign));
}

TEST(AWalk, TakesUnprefixedElementsInNoNamespaceOnly) {
  ParsedDocument document(R"(<r><d xmlns="urn:d"><b>no</b></d><p:b xmlns:p="urn:d">no</p:b></r>)");
  EXPECT_THAT(document.GetMultipleValues("//b", nullptr), IsEmpty());
}

/// A path of two prefixed steps and what it selects below.
struct PrefixRow {
  const char* name;
  const char* path;
  std::vector<std::string> values;
};

const PrefixRow kPrefixes[] = {
    {"TheSameTwice", "t:a/t:b", {"11"}},
    {"OneThatBeginsWithTheOther", "t:a/tt:b", {"12"}},
    {"OneThatTheOtherBeginsWith", "tt:a/t:b", {"21"}},
    {"TwoOfALength", "tt:a/uu:b", {"23"}},
    {"OneUriInTwoDeclarations", "//t:b", {"11", "21", "31"}},
    {"AnotherNamespaceInBetween", "//uu:b", {"13", "23"}},
};

class AWalkByPrefixes : public testing::TestWithParam<PrefixRow> {};

TEST_P(AWalkByPrefixes, SelectsByTheUriOfEach) {
  ShownDocument document;
  ASSERT_TRUE(document.ParseString(R"(<r xmlns:x="urn:1" xmlns:y="urn:2" xmlns:z="urn:3">)"
                                   "<x:a><x:b>11</x:b><y:b>12</y:b><z:b>13</z:b></x:a>"
                                   "<y:a><x:b>21</x:b><y:b>22</y:b><z:b>23</z:b></y:a>"
                                   R"(<z:a><o:b xmlns:o="urn:1">31</o:b></z:a></r>)"));
  const xmlXPathContextPtr search = document.Implementation().SearchContext();
  xmlXPathRegisterNs(search, XmlText("t"), XmlText("urn:1"));
  xmlXPathRegisterNs(search, XmlText("tt"), XmlText("urn:2"));
  xmlXPathRegisterNs(search, XmlText("uu"), XmlText("urn:3"));
  EXPECT_FALSE(IsLibxml2Asked(document, GetParam().path));
  EXPECT_EQ(GetParam().values, document.GetMultipleValues(GetParam().path, nullptr));
}

INSTANTIATE_TEST_SUITE_P(Rows, AWalkByPrefixes, testing::ValuesIn(kPrefixes),
                         [](const testing::TestParamInfo<PrefixRow>& row) {
                           return row.param.name;
                         });

TEST(AWalk, ComparesAnEmptyValueWithAnEmptyText) {
  ParsedDocument document("<r><a>1</a></r>");
  NodeAt(document, "a").SetProperty("x", "");
  EXPECT_FALSE(IsLibxml2Asked(document, "a[@x='']"));
  EXPECT_EQ("1", document.GetSingleValue("a[@x='']", nullptr));
}

TEST(AWalk, TakesANamespaceWithoutUriForNoOther) {
  BindingDocument document;
  ASSERT_TRUE(document.ParseString("<r><a/></r>"));
  DocumentNode a = NodeAt(document, "a");
  a.SetNs("", "p");
  EXPECT_THAT(document.SelectNodes("tt:a"), IsEmpty());
}

TEST(AWalk, LeavesAnElementInANamespaceWithoutUriToLibxml2) {
  ParsedDocument document("<r><a>1</a><a x='2'>2</a></r>");
  for (const tests::NodePtr& a : tests::All(document, "a")) a->SetNs("", "p");
  EXPECT_TRUE(IsLibxml2Asked(document, "a"));
  EXPECT_FALSE(IsLibxml2Asked(document, "b"));
  // libxml2 has two ways to evaluate a path, and they differ in this.
  EXPECT_THAT(document.GetMultipleValues("a[@x='2']", nullptr), IsEmpty());
}

/// A document of so many elements "a", each within the one before.
void MakeDeep(Document& document, int depth) {
  DocumentNode node = NodeAt(document, "/a");
  for (int made = 1; made < depth; ++made) node = *tests::NodePtr(node.AddNewChild("a", ""));
}

TEST(AWalk, GoesAThousandElementsDeep) {
  ParsedDocument document("<a/>");
  MakeDeep(document, 1000);
  EXPECT_FALSE(IsLibxml2Asked(document, "//a"));
  EXPECT_EQ(1000U, tests::All(document, "//a").size());
}

TEST(AWalk, LeavesADeeperDocumentToLibxml2) {
  ParsedDocument document("<a/>");
  MakeDeep(document, 1001);
  EXPECT_TRUE(IsLibxml2Asked(document, "//a"));
  EXPECT_EQ(1001U, tests::All(document, "//a").size());
}

TEST(AWalk, LeavesLongNamesToLibxml2) {
  ParsedDocument document("<r/>");
  const std::string longest(1000, 'a');
  EXPECT_FALSE(IsLibxml2Asked(document, longest + "[@" + longest + "='1']/@" + longest));
  const std::string tooLong = longest + "a";
  for (const std::string& path : {tooLong, "r/@" + tooLong, "r[@" + tooLong + "='1']"})
    EXPECT_TRUE(IsLibxml2Asked(document, path)) << path.size();
}

TEST(AWalk, TakesNoNamespaceDeclarationForAnAttribute) {
  ParsedDocument document(R"(<r><a xmlns="urn:d" x="1"/></r>)");
  EXPECT_THAT(document.GetMultipleValues("//r/@xmlns", nullptr), IsEmpty());
}

TEST(AWalk, LeavesAStartThatIsNoElementToLibxml2) {
  ParsedDocument document(R"(<r x="1">text<a/></r>)");
  for (const char* const path : {"/", "@x", "text()"}) {
    DocumentNode start = NodeAt(document, path);
    EXPECT_TRUE(IsLibxml2Asked(document, "a", &start)) << path;
  }
}

TEST(AWalk, FindsTheRootFromTheDocumentNode) {
  ParsedDocument document("<r>1</r>");
  DocumentNode top = NodeAt(document, "/");
  EXPECT_EQ("1", document.GetSingleValue("r", &top));
}

TEST(AWalk, HasNothingToFindFromAnEmptyNode) {
  ParsedDocument document("<r><a>1</a></r>");
  DocumentNode empty;
  EXPECT_EQ("", document.GetSingleValue("a", &empty));
  EXPECT_EQ("1", document.GetSingleValue("//a", &empty));
}

TEST(AWalk, PassesOverWhatIsNoElement) {
  ParsedDocument document("<r>a<!--a--><?a a?><![CDATA[a]]><a>1</a></r>");
  EXPECT_FALSE(IsLibxml2Asked(document, "//a"));
  EXPECT_EQ("1", document.GetSingleValue("//a", nullptr));
}

TEST(AWalk, PassesOverADocumentTypeAndWhatEntitiesHold) {
  ParsedDocument document(R"(<!DOCTYPE r [<!ELEMENT r ANY><!ENTITY e "<a>no</a>">]>)"
                          "<r>&e;<a>1</a></r>");
  EXPECT_FALSE(IsLibxml2Asked(document, "//a"));
  EXPECT_THAT(document.GetMultipleValues("//a", nullptr), ElementsAre("1"));
}

/// A document whose root holds something that is no element, and an element to be put into that.
struct OddParentRow {
  const char* name;
  const char* text;
};

const OddParentRow kOddParents[] = {
    {"Comment", "<r><!--c--><a/></r>"},
    {"Instruction", "<r><?p i?><a/></r>"},
    {"CDataSection", "<r><![CDATA[c]]><a/></r>"},
    {"ReferenceWithoutDeclaration", "<!DOCTYPE r SYSTEM 'missing.dtd'><r>&e;<a/></r>"},
};

class AWalkPastAnOddParent : public testing::TestWithParam<OddParentRow> {};

TEST_P(AWalkPastAnOddParent, LeavesItToLibxml2) {
  const tests::XmlErrors errors;
  ParsedDocument document(GetParam().text);
  DocumentNode root = NodeAt(document, "/r");
  const xmlNodePtr parent = Raw(root)->children;
  const xmlNodePtr a = parent->next;
  EXPECT_FALSE(IsLibxml2Asked(document, "//a"));
  xmlUnlinkNode(a);
  parent->children = a;  // by hand: not every libxml2 may add it
  a->parent = parent;
  EXPECT_TRUE(IsLibxml2Asked(document, "//a"));
  parent->children = nullptr;  // since what a reference holds is not freed
  xmlAddNextSibling(parent, a);
}

INSTANTIATE_TEST_SUITE_P(Rows, AWalkPastAnOddParent, testing::ValuesIn(kOddParents),
                         [](const testing::TestParamInfo<OddParentRow>& row) {
                           return row.param.name;
                         });

// As after adding a node to a parent by libxml2's own call while a sibling follows it.
TEST(AWalk, LeavesANodeWithoutParentToLibxml2) {
  ParsedDocument document("<r><p><b/><a>1</a></p><p><a>2</a></p></r>");
  const xmlNodePtr orphan = Raw(*tests::NodePtr(document.SelectNode("//a")));
  const xmlNodePtr parent = orphan->parent;
  orphan->parent = nullptr;
  for (const char* const path : {"p/a", "//a", "//p/a"})
    EXPECT_TRUE(IsLibxml2Asked(document, path)) << path;
  orphan->parent = parent;
}

TEST(AWalk, ComparesAValueOfOnePieceItself) {
  ParsedDocument document(R"(<r><a x="1&#9;&amp;2"/><a x=""/></r>)");
  EXPECT_FALSE(IsLibxml2Asked(document, "a[@x='1']"));
}

/// An attribute that is not one plain text; the text `kept` makes the document declare its entity.
class AWalkOverAnOddValue : public testing::Test {
 protected:
  ParsedDocument m_document{R"(<!DOCTYPE r [<!ENTITY e "v">]><r><a x="&e;"/><b x="1">2</b></r>)"};
};

TEST_F(AWalkOverAnOddValue, LeavesAReferenceToLibxml2) {
  EXPECT_TRUE(IsLibxml2Asked(m_document, "a[@x='v']"));
  EXPECT_EQ(nullptr, m_document.SelectNode("b[@x='&e;']"));
}

TEST_F(AWalkOverAnOddValue, LeavesSeveralPiecesToLibxml2) {
  DocumentNode b = NodeAt(m_document, "b");
  xmlAddNextSibling(Raw(b)->properties->children, xmlNewReference(Raw(b)->doc, XmlText("e")));
  EXPECT_TRUE(IsLibxml2Asked(m_document, "b[@x='1']"));
}

TEST_F(AWalkOverAnOddValue, LeavesATextWithoutContentToLibxml2) {
  DocumentNode b = NodeAt(m_document, "b");
  xmlNodeSetContent(Raw(b)->properties->children, nullptr);
  EXPECT_TRUE(IsLibxml2Asked(m_document, "b[@x='1']"));
  EXPECT_EQ("2", m_document.GetSingleValue("b[@x='']", nullptr));
}

TEST(AWalk, TakesAnAttributeInANamespaceWithoutPrefixForOneInNone) {
  ParsedDocument document(R"(<r xmlns="urn:d"><a xmlns="" x="1"/></r>)");
  DocumentNode x = NodeAt(document, "//a/@x");
  x.SetNs("urn:d", "");
  NodeAt(document, "//a").SetProperty("x", "2");
  EXPECT_THAT(document.GetMultipleValues("//a/@x"), ElementsAre("1", "2"));
  EXPECT_TRUE(tests::First(document, "//a[@x='2']"));
  EXPECT_FALSE(IsLibxml2Asked(document, "//a[@x='2']/@x"));
}

TEST(AWalk, LeavesWhatLibxml2AloneLooksIntoToIt) {
  ParsedDocument document("<r><a>1</a></r>");
  DocumentNode root = NodeAt(document, "/r");
  const xmlNodePtr fragment = xmlNewDocFragment(Raw(root)->doc);
  xmlNewChild(fragment, nullptr, XmlText("a"), XmlText("2"));
  xmlAddChild(Raw(root), fragment);
  EXPECT_THAT(document.GetMultipleValues("//a", nullptr), ElementsAre("1", "2"));
  EXPECT_EQ("1", document.GetSingleValue("//a", nullptr));
}

TEST(AWalk, LooksNoFurtherThanItMust) {
  ParsedDocument document("<r><a>1</a></r>");
  DocumentNode a = NodeAt(document, "a");
  xmlAddChild(Raw(a), xmlNewDocFragment(Raw(a)->doc));
  EXPECT_FALSE(IsLibxml2Asked(document, "a"));
  EXPECT_TRUE(IsLibxml2Asked(document, "//a"));
  const tests::FailingXmlMemory noMemory(1, tests::Shortage::kOnce);
  EXPECT_TRUE(tests::First(document, "//a"));
  EXPECT_EQ(0, noMemory.Failures());
}

TEST(AWalk, EndsAtTheFirstWhereOneIsEnough) {
  ParsedDocument document("<r><a>1</a></r>");
  DocumentNode root = NodeAt(document, "/r");
  xmlAddChild(Raw(root), xmlNewDocFragment(Raw(root)->doc));
  for (const char* const path : {"a", "//a"}) {
    const tests::FailingXmlMemory noMemory(1, tests::Shortage::kOnce);
    EXPECT_TRUE(tests::First(document, path));
    EXPECT_EQ(0, noMemory.Failures()) << path;
  }
}

TEST(AWalk, LeavesItsStartAsTheSearchContextsCurrentNode) {
  ShownDocument document;
  ASSERT_TRUE(document.ParseString("<r><a>1</a></r>"));
  DocumentNode a = NodeAt(document, "a");
  EXPECT_THAT(document.SelectNodes("b", &a), IsEmpty());
  EXPECT_EQ(a.Handle(), document.Implementation().SearchContext()->node);
}

}  // namespace
}  // namespace analytics
