#include <string>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/MemoryTable.h"

namespace analytics {
namespace {

using tests::Answer;
using tests::NodePtr;

// Texts are too long for the buffer within a string object.
const std::string kBefore =
    "<p:r xmlns:p=\"urn:p\"><a t=\"a text that is long enough\" n=\"                  12.5 m\">"
    "                 12 &lt;</a>";
const std::string kAfter = "<b/><w xmlns:q=\"urn:q\">tail</w><q:c/></p:r>";
const std::string kInside = "                 12 &lt;";
const std::string kText = "t";
const std::string kNumber = "n";
const std::string kMissing = "m";
const std::string kEmpty;
const std::string kNew = "a new text that is long enough";
const std::string kReference = "1 &lt; 2 in a text that is long enough";
const std::string kRootUri = "urn:p";
const std::string kNewUri = "urn:n";
const std::string kPrefix = "n";

/// The tree with this in the place of its first child.
std::string Tree(const std::string& first, const std::string& rest = kAfter) {
  return "<p:r xmlns:p=\"urn:p\">" + first + rest;
}

const std::string kAttributes = R"( t="a text that is long enough" n="                  12.5 m")";

std::string A(const std::string& attributes, const std::string& content) {
  return Tree("<a" + attributes + (content.empty() ? "/>" : ">" + content + "</a>"));
}

/// A node of a tree in which one element uses a namespace that is not declared for it.
class NodeSubject {
 public:
  NodeSubject() { Reset(); }
  ~NodeSubject() { FreeDetached(); }

  void Reset() {
    FreeDetached();
    EXPECT_TRUE(document.ParseString(kBefore + "<b/><w xmlns:q='urn:q'><q:c/>tail</w></p:r>"));
    root = NodeAt(document, "/*");
    node = NodeAt(document, "a");
    other = NodeAt(document, "b");
    stray = NodeAt(document, "w/*");
    tail = NodeAt(document, "w/text()");
    root.AddChild(&stray);
  }

  std::string State() { return RootDump(document); }

  /// Takes the node out, to be freed by its owner.
  void Detach() {
    isDetached = true;
    node.Unlink(false);
  }

  Document document;
  DocumentNode root, node, other, stray, tail;
  bool isDetached = false;

 private:
  void FreeDetached() {
    if (isDetached) node.Unlink(true);
    isDetached = false;
  }
};

using S = NodeSubject;

const tests::MemoryRow<NodeSubject> kRows[] = {
    {"GetValue",
     [](S& s) -> Answer { return s.node.GetValue(); },
     "'                 12 <'",
     {"''"}},
    {"GetInteger", [](S& s) -> Answer { return s.node.GetValue(7); }, "12", {"7"}},
    {"GetProperty",
     [](S& s) -> Answer { return s.node.GetProperty(kText); },
     "'a text that is long enough'",
     {"''"}},
    {"GetMissingProperty", [](S& s) -> Answer { return s.node.GetProperty(kMissing); }, "''"},
    {"GetIntegerProperty",
     [](S& s) -> Answer { return s.node.GetProperty(kNumber, 7); },
     "12",
     {"7"}},
    {"GetNumericProperty",
     [](S& s) -> Answer { return s.node.GetNumericProperty(kNumber, 7); },
     "12.500000",
     {"7.000000"}},
    {"SetValue",
     [](S& s) -> Answer { return s.node.SetValue(kNew), true; },
     "true",
     {},
     A(kAttributes, kNew)},
    {"SetValueWithAReference",
     [](S& s) -> Answer { return s.node.SetValue(kReference), true; },
     "true",
     {},
     A(kAttributes, kReference)},
    {"SetEmptyValue",
     [](S& s) -> Answer { return s.node.SetValue(kEmpty), true; },
     "true",
     {},
     A(kAttributes, "")},
    {"SetInteger",
     [](S& s) -> Answer { return s.node.SetValue(-42), true; },
     "true",
     {},
     A(kAttributes, "-42")},
    {"SetProperty",
     [](S& s) -> Answer { return s.node.SetProperty(kText, kNew), true; },
     "true",
     {},
     A(" t=\"" + kNew + R"(" n="                  12.5 m")", kInside)},
    {"SetEmptyProperty",
     [](S& s) -> Answer { return s.node.SetProperty(kText, kEmpty), true; },
     "true",
     {},
     A(R"( t="" n="                  12.5 m")", kInside)},
    {"SetNewProperty",
     [](S& s) -> Answer { return s.node.SetProperty(kMissing, kNew), true; },
     "true",
     {},
     A(kAttributes + " m=\"" + kNew + "\"", kInside)},
    {"SetIntegerProperty",
     [](S& s) -> Answer { return s.node.SetProperty(kMissing, 5), true; },
     "true",
     {},
     A(kAttributes + " m=\"5\"", kInside)},
    {"AddNewChild",
     [](S& s) -> Answer { return NodePtr(s.node.AddNewChild(kNumber, kReference)); },
     "<n>" + kReference + "</n>",
     {"empty node"},
     A(kAttributes, kInside + "<n>" + kReference + "</n>")},
    {"AddNewEmptyChild",
     [](S& s) -> Answer { return NodePtr(s.node.AddNewChild(kNumber, kEmpty)); },
     "<n/>",
     {"empty node"},
     A(kAttributes, kInside + "<n/>")},
    {"AddNewChildInTheParentsNamespace",
     [](S& s) -> Answer { return NodePtr(s.root.AddNewChild(kNumber, 5)); },
     "<p:n>5</p:n>",
     {"empty node"},
     kBefore + kAfter.substr(0, kAfter.size() - 6) + "<p:n>5</p:n></p:r>"},
    {"AddChild",
     [](S& s) -> Answer { return s.node.AddChild(&s.other), true; },
     "true",
     {},
     Tree("<a" + kAttributes + ">" + kInside + "<b/></a>",
          "<w xmlns:q=\"urn:q\">tail</w><q:c/></p:r>")},
    {"AddText",
     [](S& s) -> Answer { return s.node.AddChild(&s.tail), true; },
     "true",
     {},
     Tree("<a" + kAttributes + ">" + kInside + "tail</a>",
          "<b/><w xmlns:q=\"urn:q\"/><q:c/></p:r>")},
    {"Unlink", [](S& s) -> Answer { return s.Detach(), true; }, "true", {}, Tree("")},
    {"UnlinkAndFree",
     [](S& s) -> Answer { return s.node.Unlink(true), true; },
     "true",
     {},
     Tree("")},
    {"Dump", [](S& s) -> Answer { return s.other.DumpToString(); }, "'<b/>'", {"''"}},
    {"DumpMuch",
     [](S& s) -> Answer { return s.root.DumpToString(); },
     "'" + kBefore + kAfter + "'",
     {"''"}},
    {"SetNsOfTheRoot",
     [](S& s) -> Answer { return s.other.SetNs(kRootUri, kPrefix), true; },
     "true",
     {},
     Tree("<a" + kAttributes + ">" + kInside + "</a>",
          "<p:b/><w xmlns:q=\"urn:q\">tail</w><q:c/></p:r>")},
    {"SetNewNs",
     [](S& s) -> Answer { return s.other.SetNs(kNewUri, kPrefix), true; },
     "true",
     {},
     Tree("<a" + kAttributes + ">" + kInside + "</a>",
          R"(<n:b xmlns:n="urn:n"/><w xmlns:q="urn:q">tail</w><q:c/></p:r>)")},
    {"ReconciliateNs",
     [](S& s) -> Answer { return s.stray.ReconciliateNs(), true; },
     "true",
     {},
     Tree("<a" + kAttributes + ">" + kInside + "</a>",
          R"(<b/><w xmlns:q="urn:q">tail</w><q:c xmlns:q="urn:q"/></p:r>)")},
};

using NodeMemoryTest = tests::MemoryTableTest<NodeSubject>;

TEST_P(NodeMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(NodeMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, NodeMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<NodeSubject>);

}  // namespace
}  // namespace analytics
