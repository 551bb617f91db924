#include <cstring>
#include <iostream>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include "tests/support/FailingXmlMemory.h"
#include "tests/support/Figures.h"
#include "tests/support/Survival.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlEntry.h"
#include "tests/support/XmlMemoryFaults.h"
#include "tests/support/XmlVersion.h"

/// What libxml2 does wrong by itself: nothing here uses the library that is tested elsewhere.
namespace {

using tests::FailingXmlMemory;

constexpr char kText[] =
    "<r xmlns:q='urn:q'><a t='long'>text</a><a>2 &lt;</a><w xmlns:s='urn:s'><s:c/></w><b/>tail</r>";

const xmlChar* X(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

std::string Copy(const xmlChar* text) {
  return text ? reinterpret_cast<const char*>(text) : "nothing";
}

/// A tree with a search context, and what a call answers.
struct Tree {
  Tree() : document(xmlParseMemory(kText, sizeof kText - 1)), context(NewContext(document)) {}
  ~Tree() {
    Close();
    xmlFreeNode(loose);
  }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  static xmlXPathContextPtr NewContext(xmlDocPtr document) {
    xmlXPathContextPtr const context = xmlXPathNewContext(document);
    context->node = xmlDocGetRootElement(document);
    return context;
  }

  void Close() {
    xmlXPathFreeContext(context);
    xmlFreeDoc(document);
    context = nullptr;
    document = nullptr;
  }

  /// Replaces the tree by what a parser gives.
  void Open(xmlDocPtr (*parse)()) {
    Close();
    document = parse();
  }

  xmlNodePtr Root() const { return xmlDocGetRootElement(document); }
  xmlNodePtr First() const { return Root()->children; }

  std::string Text() const {
    if (!document || !Root()) return "nothing";
    xmlBufferPtr const buffer = xmlBufferCreate();
    xmlNodeDump(buffer, document, Root(), 0, 0);
    std::string text = Copy(xmlBufferContent(buffer));
    xmlBufferFree(buffer);
    return text;
  }

  xmlDocPtr document;
  xmlXPathContextPtr context;
  xmlNodePtr loose = nullptr;
  std::string answer = "nothing";
};

xmlDocPtr ParseText() { return xmlParseMemory(kText, sizeof kText - 1); }

/// Gives as the answer whether a text that ends too early is taken for well-formed.
void ParseIllFormedText(Tree& tree) {
  xmlDocPtr const document = xmlParseMemory(kText, sizeof kText - 5);
  if (document) tree.answer = "part";
  xmlFreeDoc(document);
}

xmlDocPtr ParseFile() {
  static const tests::TemporaryDirectory s_directory;
  static const std::string s_path = s_directory.Write("a.xml", kText);
  return xmlParseFile(s_path.c_str());
}

void ParseIllFormedFile(Tree& tree) {
  static const tests::TemporaryDirectory s_directory;
  static const std::string s_path =
      s_directory.Write("a.xml", std::string(kText, sizeof kText - 5));
  xmlDocPtr const document = xmlParseFile(s_path.c_str());
  if (document) tree.answer = "part";
  xmlFreeDoc(document);
}

/// Takes what is selected out of the tree.
void DeleteSelected(Tree& tree) {
  xmlXPathObjectPtr const result = xmlXPathEvalExpression(X("a"), tree.context);
  const xmlNodeSet* const nodes = result ? result->nodesetval : nullptr;
  // The answer is short enough to need no memory of its own.
  if (nodes && nodes->nodeNr > 0) tree.answer = nodes->nodeTab[0] == tree.First() ? "1" : "2";
  for (int index = 0; nodes && index < nodes->nodeNr; ++index) {
    xmlUnlinkNode(nodes->nodeTab[index]);
    xmlFreeNode(nodes->nodeTab[index]);
    nodes->nodeTab[index] = nullptr;
  }
  xmlXPathFreeObject(result);
}

void AddNewChild(Tree& tree) {
  const xmlNode* const child = xmlNewChild(tree.Root(), nullptr, X("n"), X("1 &lt; 2 &gt; 1"));
  if (child) tree.answer = child->name && child->last && child->last->content ? "whole" : "part";
}

void AddText(Tree& tree) {
  xmlNodePtr const tail = tree.Root()->last;
  xmlUnlinkNode(tail);
  xmlAddChild(tree.First(), tail);
}

void MoveAndReconciliate(Tree& tree) {
  xmlNodePtr const moved = tree.First()->next->next->children;
  xmlUnlinkNode(moved);
  xmlAddChild(tree.Root(), moved);
  xmlReconciliateNs(tree.document, moved);
}

void Dump(Tree& tree) {
  xmlBufferPtr const buffer = xmlBufferCreate();
  if (!buffer) return;
  for (int round = 0; round < 100; ++round) {
    xmlNodeDump(buffer, tree.document, tree.Root(), 0, 0);
  }
  xmlBufferFree(buffer);
}

void FindXmlNs(Tree& tree) {
  const xmlNs* const ns = xmlSearchNs(tree.document, tree.Root(), X("xml"));
  if (ns) tree.answer = ns->href ? "whole" : "part";
}

/// A call that shows a fault of the table.
struct Row {
  const char* call;
  void (*operate)(Tree& tree);
};

const Row kRows[] = {
    {"xmlParseMemory", ParseIllFormedText},
    {"xmlParseMemory", [](Tree& tree) { tree.Open(ParseText); }},
    {"xmlParseFile", ParseIllFormedFile},
    {"xmlParseFile", [](Tree& tree) { tree.Open(ParseFile); }},
    {"xmlXPathEval", DeleteSelected},
    {"xmlHashUpdateEntry3",
     [](Tree& tree) {
       for (const char* const prefix :
            {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "tt", "ka"}) {
         xmlXPathRegisterNs(tree.context, X(prefix), X("urn:p"));
       }
     }},
    {"xmlNodeSetContent",
     [](Tree& tree) { xmlNodeSetContent(tree.First(), X("1 &lt; 2 &gt; 1")); }},
    {"xmlNewChild", AddNewChild},
    {"xmlSetNsProp", [](Tree& tree) { xmlSetProp(tree.First(), X("t"), X("new")); }},
    {"xmlAddChild", AddText},
    {"xmlNewNs",
     [](Tree& tree) { xmlSetNs(tree.First(), xmlNewNs(tree.First(), X("urn:n"), X("n"))); }},
    {"xmlReconciliateNs", MoveAndReconciliate},
    {"xmlNodeDump", Dump},
    {tests::kUnnamedXmlFunction, FindXmlNs},
};

/// Runs a call without memory and gathers its effects.
class Fault {
 public:
  explicit Fault(const Row& row) : m_row(row) {
    Tree tree;
    m_before = tree.Text();
    row.operate(tree);
    m_answer = tree.answer;
    m_wanted = tree.Text();
  }

  unsigned Effects(tests::Shortage shortage) {
    const std::set<int> crashes = Crashes(shortage);
    if (!crashes.empty()) m_effects |= tests::kCrashes;
    for (int number = 1; crashes.count(number) > 0 || RunsOut(number, shortage);) ++number;
    return m_effects;
  }

 private:
  /// Which failures end the process. One child goes on to the next of them, since a child for each
  /// failure takes a sanitized program far longer than the call.
  std::set<int> Crashes(tests::Shortage shortage) {
    std::set<int> crashes;
    tests::SharedNumber number(0);
    const auto goOn = [&] {
      while (Run(++number, shortage)) continue;
    };
    while (!tests::SurvivesInAChild(goOn)) crashes.insert(number.Get());
    return crashes;
  }

  bool RunsOut(int number, tests::Shortage shortage) {
    const long blocks = FailingXmlMemory::Live();
    const long moment = FailingXmlMemory::Now();
    const bool ranOut = Run(number, shortage);
    if (FailingXmlMemory::Live() != blocks) m_effects |= tests::kLeaks;
    FailingXmlMemory::ReleaseLost(moment);
    return ranOut;
  }

  bool Run(int number, tests::Shortage shortage) {
    Tree tree;
    int failures = 0;
    {
      const FailingXmlMemory failing(number, shortage);
      m_row.operate(tree);
      failures = failing.Failures();
    }
    if (tree.answer != m_answer && tree.answer != "nothing") m_effects |= tests::kWrongAnswer;
    const std::string text = tree.Text();
    const bool isRight = text == m_before || text == m_wanted || text == "nothing";
    if (!isRight) m_effects |= tests::kWrongState;
    return failures > 0;
  }

  const Row& m_row;
  std::string m_before;
  std::string m_answer;
  std::string m_wanted;
  unsigned m_effects = 0;
};

unsigned EffectsSeen(const Row& row) {
  unsigned seen = 0;
  for (const tests::Shortage shortage : tests::kShortages) seen |= Fault(row).Effects(shortage);
  return seen;
}

unsigned EffectsSeen(const char* call) {
  unsigned seen = 0;
  for (const Row& row : kRows) {
    if (std::strcmp(row.call, call) == 0) seen |= EffectsSeen(row);
  }
  return seen;
}

/// A line of the table; each of its effects is seen with libxml2 alone, in one of its calls, unless
/// a newer libxml2 has mended it.
class AFaultOfLibxml2 : public testing::TestWithParam<tests::XmlMemoryFault> {
 private:
  const tests::QuietXml m_quiet;
};

TEST_P(AFaultOfLibxml2, ShowsWithLibxml2AloneOrIsReportedAsMended) {
  EXPECT_NE(0U, GetParam().effects);
  const unsigned mended = GetParam().effects & ~EffectsSeen(GetParam().call);
  if (mended != 0) std::cout << GetParam().call << ": effects " << mended << " are mended\n";
  EXPECT_TRUE(mended == 0 || !tests::kIsOldestXml);
  tests::Count(mended == 0 ? "exclusions" : "mended_exclusions");
}

INSTANTIATE_TEST_SUITE_P(Faults, AFaultOfLibxml2, testing::ValuesIn(tests::XmlMemoryFaults()));

}  // namespace
