#include <string>

#include <gmock/gmock.h>

#include <analytics/types/Point.h>

#include "document/DocumentImpl.h"
#include "tests/document/TestDocuments.h"
#include "tests/support/MemoryTable.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::Answer;
using tests::NodeList;
using tests::NodePtr;
using tests::NsRecord;

// Texts are too long for the buffer within a string object, and the elements more than the ten that
// libxml2 first makes room for.
const std::string kFirst = "<a>a text that is &lt; long enough</a>";
const std::string kSecond = "<a>another text, long enough</a>";
const std::string kNumbers = "<n>                    12 px</n><x>                    5 px</x>";
const std::string kTwelve = "<i/><i/><i/><i/><i/><i/><i/><i/><i/><i/><i/><i/>";
const std::string kStart = "<r xmlns:p=\"urn:p\">";
const std::string kText = kStart + kFirst + kSecond + kNumbers + "<m>" + kTwelve + "</m></r>";
const std::string kDump =
    "<?xml version=\"1.0\"?>\n<r xmlns:p=\"urn:p\">\n  <a>a text that is &lt; long enough</a>\n"
    "  <a>another text, long enough</a>\n  <n>                    12 px</n>\n"
    "  <x>                    5 px</x>\n  <m>\n    <i/>\n    <i/>\n    <i/>\n    <i/>\n    <i/>\n"
    "    <i/>\n    <i/>\n    <i/>\n    <i/>\n    <i/>\n    <i/>\n    <i/>\n  </m>\n</r>\n";

// What the subject says of itself after its operations.
const std::string kAnswering = " a=a text that is < long enough point=1,2";
const std::string kWithoutContext = kText + " a= point=1,2";
const std::string kClosed = "closed";
const std::string kElements = "a";
const std::string kNumber = "n";
const std::string kMany = "m/i";
const std::string kMissing = "missing";
const std::string kInvalid = "a[";
const std::string kTexts = "a/text()";
const std::string kMixed = "m/i|a";
const std::string kCount = "string(count(a))";
const std::string kDeclared = "p";
const std::string kXml = "xml";

struct Files {
  const tests::TemporaryDirectory directory;
  const std::string whole = directory.Write("a.xml", kText);
  const std::string missing = directory.PathOf("missing.xml");
  const std::string copy = "/dev/null";
};

/// A document with what its operations are given and what they fill.
class DocumentSubject {
 public:
  using Impl = ShownDocument::Impl;

  DocumentSubject() { Reset(); }

  void Reset() {
    EXPECT_TRUE(document.ParseString(kText));
    root = NodeAt(document, "/*");
    point = types::Point{1, 2};
  }

  std::string State() {
    const NodePtr open(document.SelectRootNode());
    if (!open) return "closed";
    return open->DumpToString() + " a=" + document.GetSingleValue("a", nullptr) +
           " point=" + std::to_string(point.x) + "," + std::to_string(point.y);
  }

  Impl& Implementation() { return document.Implementation(); }

  ShownDocument document;
  DocumentNode root;
  types::Point point;

  // One for all, because files take their time.
  static const Files& Shared() {
    static const Files s_files;
    return s_files;
  }
};

using S = DocumentSubject;

const tests::MemoryRow<DocumentSubject> kRows[] = {
    {"Construct", [](S&) -> Answer { return ShownDocument().Close(), true; }, "true"},
    {"ParseText",
     [](S& s) -> Answer { return s.document.ParseString(kText); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseBuffer",
     [](S& s) -> Answer { return s.document.ParseString(kText.data(), kText.size()); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseFile",
     [](S& s) -> Answer { return s.document.ParseFile(S::Shared().whole); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseMissingFile",
     [](S& s) -> Answer { return s.document.ParseFile(S::Shared().missing); },
     "false",
     {},
     kClosed},
    {"ParseIllFormedText",
     [](S& s) -> Answer { return s.document.ParseString(kStart); },
     "false",
     {},
     kClosed},
    {"Close", [](S& s) -> Answer { return s.document.Close(), true; }, "true", {}, kClosed},
    {"CreateSearchContext",
     [](S& s) -> Answer { return s.document.CreateSearchContext(); },
     "true",
     {"false"},
     {},
     {kWithoutContext}},
    {"CreateRegisteringContext",
     [](S& s) -> Answer { return s.Implementation().CreateXPathContext(true); },
     "true",
     {"false"},
     {},
     {kWithoutContext}},
    {"SelectRootNode", [](S& s) -> Answer { return NodePtr(s.document.SelectRootNode()); }, kText},
    {"SelectNode",
     [](S& s) -> Answer { return NodePtr(s.document.SelectNode(kElements, nullptr)); },
     kFirst,
     {"null"}},
    {"SelectNodes",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kElements, nullptr)); },
     "[" + kFirst + kSecond + "]",
     {"[]"}},
    {"SelectManyNodes",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kMany, nullptr)); },
     "[" + kTwelve + "]",
     {"[]"}},
    {"SelectNoNodes",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kMissing, nullptr)); }, "[]"},
    {"SelectByAnInvalidPath",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kInvalid, nullptr)); }, "[]"},
    {"SelectMixedNodes",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kMixed, &s.root)); },
     "[" + kFirst + kSecond + kTwelve + "]",
     {"[]"}},
    {"SelectFromANode",
     [](S& s) -> Answer { return NodeList(s.document.SelectNodes(kTexts, &s.root)); },
     "[a text that is &lt; long enoughanother text, long enough]",
     {"[]"}},
    {"GetText",
     [](S& s) -> Answer { return s.document.GetSingleValue(kElements, nullptr); },
     "'a text that is < long enough'",
     {"''"}},
    {"GetTextOfACount", [](S& s) -> Answer { return s.document.GetSingleValue(kCount, nullptr); },
     "''"},
    {"GetTexts",
     [](S& s) -> Answer { return s.document.GetMultipleValues(kElements, nullptr); },
     "['a text that is < long enough''another text, long enough']",
     // A node whose text cannot be made is passed over, as one without text is.
     {"[]", "['a text that is < long enough']", "['another text, long enough']"}},
    {"GetInteger",
     [](S& s) -> Answer { return s.document.GetSingleValue(kNumber, 7, nullptr); },
     "12",
     {"7"}},
    {"GetNumber",
     [](S& s) -> Answer { return s.document.GetNumericValue(kNumber, 7, nullptr); },
     "12.000000",
     {"7.000000"}},
    {"DeleteNodes",
     [](S& s) -> Answer { return s.document.DeleteNodes(kElements, nullptr); },
     "2",
     {"0"},
     kStart + kNumbers + "<m>" + kTwelve + "</m></r> a= point=1,2"},
    {"DeleteManyNodes",
     [](S& s) -> Answer { return s.document.DeleteNodes(kMany, nullptr); },
     "12",
     {"0"},
     kStart + kFirst + kSecond + kNumbers + "<m/></r>" + kAnswering},
    {"Dump", [](S& s) -> Answer { return s.document.DumpToString(); }, "'" + kDump + "'", {"''"}},
    {"Save", [](S& s) -> Answer { return s.document.SaveToFile(S::Shared().copy); }, "true"},
    {"GetNs", [](S& s) -> Answer { return NsRecord{s.document.GetNs(kDeclared)}; }, "urn:p"},
    {"GetNsOfXml",
     [](S& s) -> Answer { return NsRecord{s.document.GetNs(kXml)}; },
     "http://www.w3.org/XML/1998/namespace",
     {"null"},
     kText + kAnswering},
    {"GetNsOfANode", [](S& s) -> Answer { return NsRecord{s.document.GetNs(kDeclared, &s.root)}; },
     "urn:p"},
    {"PointFromNode",
     [](S& s) -> Answer { return s.document.PointFromNode(&s.root, s.point); },
     "true",
     {},
     kText + " a=a text that is < long enough point=5,2"},
};

using DocumentMemoryTest = tests::MemoryTableTest<DocumentSubject>;

TEST_P(DocumentMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(DocumentMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, DocumentMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<DocumentSubject>);

}  // namespace
}  // namespace analytics
