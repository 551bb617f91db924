#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include "document/XmlText.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"

namespace analytics {
namespace {

const char kText[] = R"(<r xmlns:o="http://www.onvif.org/ver10/schema" xmlns:w="urn:w">
  <a x="1" y="p"><b x="2" y="q">first</b><a x="1"><b x="2" y="r">second</b></a><b>third</b></a>
  <b x="1">fourth</b><b x="">fifth</b><b/><div><and x="5"/></div><child/><text/><a-1.b_2 x="7"/>
  <o:a x="8"><o:b x="9"/><b x="10"/></o:a><w:a/><d xmlns="urn:w"><b x="11"/></d>
  <a><a><a><a><a><a><a><a>deep</a></a></a></a></a></a></a></a>
</r>)";

/// A document in which the prefixes of profiles are bound, and libxml2's own answers about it.
class APath : public testing::Test {
 protected:
  APath() {
    EXPECT_TRUE(m_document.ParseString(kText));
    m_root = NodeAt(m_document, "/r");
  }

  xmlNodePtr Root() { return static_cast<xmlNodePtr>(m_root.Handle()); }

  std::vector<void*> Selected(const std::string& path, DocumentNode* context) {
    std::vector<void*> nodes;
    for (const tests::NodePtr& node : tests::All(m_document, path, context))
      nodes.push_back(node->Handle());
    return nodes;
  }

  std::vector<void*> SelectedByXPath(const std::string& path, DocumentNode* context) {
    const XmlPtr<xmlXPathContext> search(xmlXPathNewContext(Root()->doc));
    xmlXPathRegisterNs(search.get(), XmlText("tt"), XmlText("http://www.onvif.org/ver10/schema"));
    search->node = static_cast<xmlNodePtr>(context ? context->Handle() : m_root.Handle());
    const XmlPtr<xmlXPathObject> result(xmlXPathEvalExpression(XmlText(path), search.get()));
    const xmlNodeSet* const nodes = result ? result->nodesetval : nullptr;
    if (!nodes || nodes->nodeNr == 0) return {};
    return std::vector<void*>(nodes->nodeTab, nodes->nodeTab + nodes->nodeNr);
  }

  void ExpectSame(const std::string& path, DocumentNode* context = nullptr) {
    const tests::QuietXml quiet;
    const std::vector<void*> expected = SelectedByXPath(path, context);
    EXPECT_EQ(expected, Selected(path, context)) << path;
    const tests::NodePtr first = tests::First(m_document, path, context);
    EXPECT_EQ(expected.empty() ? nullptr : expected[0], first ? first->Handle() : nullptr) << path;
  }

  /// Whether libxml2 is asked, which takes memory of it.
  bool IsLibxml2Asked(const std::string& path, DocumentNode* context = nullptr) {
    const tests::FailingXmlMemory noMemory(1, tests::Shortage::kOnce);
    tests::All(m_document, path, context);
    return noMemory.Failures() > 0;
  }

  BindingDocument m_document;
  DocumentNode m_root;
};

struct PathRow {
  const char* name;
  const char* path;
};

void PrintTo(const PathRow& row, std::ostream* out) { *out << row.path; }

std::string RowName(const testing::TestParamInfo<PathRow>& info) { return info.param.name; }

const PathRow kPlain[] = {
    {"Child", "b"},
    {"ChildOfAChild", "a/b"},
    {"Anywhere", "//b"},
    {"ChildAnywhere", "//a/b"},
    {"NestedLikeItself", "//a/a/b"},
    {"RootWithinAnElement", "//a/r"},
    {"BoundPrefix", "tt:a"},
    {"BoundPrefixesAnywhere", "//tt:a/tt:b"},
    {"PrefixAndNone", "tt:a/b"},
    {"PrefixThatIsAlwaysBound", "xml:a"},
    {"Condition", "b[@x='1']"},
    {"ConditionInDoubleQuotes", "//b[@x=\"2\"]"},
    {"ConditionOnNothing", "b[@x='']"},
    {"ConditionThatNothingMeets", "//b[@x='none']"},
    {"ConditionsOnTheWay", "a[@x='1']/b[@x='2']"},
    {"Attribute", "b/@x"},
    {"AttributeAnywhere", "//a[@x='1']/b[@x='2']/@y"},
    {"AttributeThatIsMissing", "//b/@none"},
    {"NamesOfOperators", "div/and"},
    {"NamesOfOperatorsThatAreNotThere", "mod/or"},
    {"NameOfAnAxis", "child"},
    {"NameOfANodeType", "text"},
    {"PunctuationInAName", "a-1.b_2"},
    {"FirstAndLastLettersFirst", "a/z/A/Z/_"},
    {"AllKindsOfCharactersInAName", "_09.-azAZ_[@_09.-azAZ_='']"},
    {"FirstAndLastCharactersInAText", "b[@x=' ~']"},
    {"EightSteps", "a/a/a/a/a/a/a/a"},
    {"NothingOfThatName", "//none"},
};

class APlainPath : public APath, public testing::WithParamInterface<PathRow> {};

TEST_P(APlainPath, IsAnsweredWithoutLibxml2) { EXPECT_FALSE(IsLibxml2Asked(GetParam().path)); }

TEST_P(APlainPath, SelectsWhatLibxml2Selects) { ExpectSame(GetParam().path); }

TEST_P(APlainPath, SelectsWhatLibxml2SelectsFromAnElement) {
  DocumentNode element = NodeAt(m_document, "//a/a");
  ExpectSame(GetParam().path, &element);
}

INSTANTIATE_TEST_SUITE_P(Rows, APlainPath, testing::ValuesIn(kPlain), RowName);

// What each has that a plain path has not is libxml2's to judge.
const PathRow kNearMisses[] = {
    {"NoText", ""},
    {"NothingAnywhere", "//"},
    {"TheDocument", "/"},
    {"FromTheDocument", "/r/b"},
    {"ThreeSlashes", "///b"},
    {"SlashAtTheEnd", "a/"},
    {"SlashAfterAnAttribute", "b/@x/"},
    {"StepAfterAnAttribute", "b/@x/b"},
    {"AnywhereWithin", "a//b"},
    {"AnywhereAtTheEnd", "a//"},
    {"MoreThanEightSteps", "a/a/a/a/a/a/a/a/a"},
    {"AttributeAlone", "@x"},
    {"AttributeAnywhere", "//@x"},
    {"AnyAttribute", "b/@*"},
    {"AttributeWithAPrefix", "b/@tt:x"},
    {"AttributeWithoutAName", "b/@"},
    {"PrefixThatIsNotBound", "z:a"},
    {"PrefixThatIsNotBoundOnTheWay", "a/z:a"},
    {"PrefixAlone", "tt:"},
    {"PrefixThatIsNotBoundAlone", "z:"},
    {"NoPrefix", ":a"},
    {"TwoPrefixes", "tt:tt:a"},
    {"AnyElement", "*"},
    {"AnyElementOfANamespace", "tt:*"},
    {"DigitFirst", "1a"},
    {"GraveFirst", "`a"},
    {"BraceInAName", "a{"},
    {"TildeInAName", "a~"},
    {"NameBeyondAscii", "\xC3\xA9"},
    {"NameThatGoesOnBeyondAscii", "a\xC3\xA9"},
    {"BlankFirst", " b"},
    {"BlankAtTheEnd", "b "},
    {"BlankOnTheWay", "a /b"},
    {"BlankInACondition", "b[ @x='1']"},
    {"Axis", "child::b"},
    {"Function", "count(b)"},
    {"NodeType", "text()"},
    {"Itself", "."},
    {"FromItself", "./b"},
    {"Parent", ".."},
    {"Union", "a|b"},
    {"Place", "b[1]"},
    {"AttributeThatIsThere", "b[@x]"},
    {"AttributeWithAPrefixInACondition", "b[@tt:x='1']"},
    {"ConditionWithoutAName", "b[@='1']"},
    {"OtherComparison", "b[@x!='1']"},
    {"NumberInACondition", "b[@x=1]"},
    {"ElementInACondition", "a[b='third']"},
    {"TwoConditions", "b[@x='1'][@x='1']"},
    {"TextFirst", "b['1'=@x]"},
    {"BeginOfACondition", "b["},
    {"ConditionWithoutAText", "b[@x=]"},
    {"NoEndOfACondition", "b[@x='1'"},
    {"NoEndOfAText", "b[@x='1]"},
    {"OtherQuoteAtTheEnd", "b[@x='1\"]"},
    {"TextBeyondAscii", "b[@x='\xC3\xA9']"},
    {"TextWithATab", "b[@x='\t']"},
    {"TextWithAControlCharacter", "b[@x='\x01']"},
    {"TextWithDelete", "b[@x='\x7F']"},
};

class ANearlyPlainPath : public APath, public testing::WithParamInterface<PathRow> {};

TEST_P(ANearlyPlainPath, IsLeftToLibxml2) { EXPECT_TRUE(IsLibxml2Asked(GetParam().path)); }

TEST_P(ANearlyPlainPath, SelectsWhatLibxml2Selects) { ExpectSame(GetParam().path); }

INSTANTIATE_TEST_SUITE_P(Rows, ANearlyPlainPath, testing::ValuesIn(kNearMisses), RowName);

}  // namespace
}  // namespace analytics
