// Parses a text, raw or made, and compares each query with libxml2's own answer from the same tree.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <libxml/parser.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>
#include <analytics/types/Point.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/MadeXml.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/NumberModel.h"
#include "fuzz/Selected.h"
#include "fuzz/Target.h"
#include "fuzz/Tree.h"
#include "tests/support/Nodes.h"

namespace fuzz {
namespace {

using analytics::Document;
using analytics::DocumentNode;
using analytics::XmlPtr;
using tests::NodePtr;

const char* const kPaths[] = {"//a",
                              "//@*",
                              "b",
                              ".",
                              "..",
                              "/",
                              "//node()",
                              "x/@x",
                              "//text()",
                              "//*[@x]",
                              "count(//a)",
                              "//a | //b",
                              "//comment()",
                              "a[2]",
                              "string(//x)",
                              "//*[last()]",
                              "./x",
                              "*/*",
                              ".y",
                              "ancestor-or-self::*",
                              "//n:a",
                              "",
                              "//a//b",
                              "//*[@x='5']",
                              "//node()/node()",
                              "//*[text()]",
                              "id('i')",
                              "//x",
                              "//y",
                              "//namespace::*",
                              "//processing-instruction()"};

const char* const kPrefixes[] = {"n", "m", "q", "xml", "nosuch", ""};

const double kDefaults[] = {0.1, -2.5, 1e300, 0};

const MemoryFile& File() {
  static const MemoryFile file;
  return file;
}

/// The library's document and the libxml2 tree within it, queried side by side.
class Comparison {
 public:
  Comparison(Document& document, Input& input)
      : m_document(document),
        m_input(input),
        m_root(document.SelectRootNode()),
        m_rootNode(static_cast<xmlNode*>(m_root->Handle())),
        m_searchContext(xmlXPathNewContext(m_rootNode->doc)) {}

  void Query() {
    const std::string path = m_input.Seldom(4) ? m_input.Text(24) : m_input.Of(kPaths);
    DocumentNode empty;
    DocumentNode* const contexts[] = {nullptr, m_start.get(), m_start.get(), &empty};
    DocumentNode* const context = m_input.Of(contexts);
    auto* const start = static_cast<xmlNode*>(context ? context->Handle() : m_rootNode);
    const Selected expected(m_searchContext.get(), start, path);
    CompareNodes(path, context, expected);
    CompareReading(path, context, expected);
    if (expected.Count() == 0) return;
    const int chosen = static_cast<int>(m_input.Byte()) % expected.Count();
    if (xmlNode* const node = expected.Node(chosen)) m_start = std::make_unique<DocumentNode>(node);
  }

  void ComparePoint() {
    if (!m_start) return;
    analytics::types::Point point{m_input.Byte(), m_input.Byte()};
    const int y = point.y;
    auto* const node = static_cast<xmlNode*>(m_start->Handle());
    const Selected x(m_searchContext.get(), node, "./x");
    const int expected = IntOf(x.FirstText(), point.x);
    Require(Call([&] { return m_document.PointFromNode(m_start.get(), point); }),
            "a point of a node");
    RequireSame(point.x, expected, "x of a point");
    RequireSame(point.y, y, "y of a point");
  }

  void CompareNamespace() {
    const std::string prefix = m_input.Of(kPrefixes);
    auto* const node = static_cast<xmlNode*>(m_start ? m_start->Handle() : m_rootNode);
    const xmlNs* const expected = xmlSearchNs(m_rootNode->doc, node, XmlOf(prefix));
    const void* const found = Call([&] {
      return m_start ? m_document.GetNs(prefix, m_start.get()) : m_document.GetNs(prefix);
    });
    Require(found == expected, "a namespace");
  }

  void CompareDump() {
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpFormatMemory(m_rootNode->doc, &text, &size, 1);
    const std::string dump = Call([&] { return m_document.DumpToString(); });
    RequireSame(dump, StringOf(XmlPtr<xmlChar>(text).get()), "a dump");
    if (m_rootNode->doc->encoding || m_rootNode->doc->intSubset) return;
    Document again;
    Require(again.ParseString(dump), "a dump can be parsed");
    RequireSame(again.DumpToString(), dump, "a dump of a parsed dump");
    if (!m_input.Seldom(4)) return;
    Require(m_document.SaveToFile(File().Path()), "a document can be saved");
    Require(again.ParseFile(File().Path()), "a saved document can be parsed");
    RequireSame(again.DumpToString(), dump, "a dump of a saved document");
  }

 private:
  void CompareNodes(const std::string& path, DocumentNode* context, const Selected& expected) {
    const std::vector<NodePtr> nodes =
        tests::Owned(Call([&] { return m_document.SelectNodes(path, context); }));
    RequireSame(static_cast<int>(nodes.size()), expected.Count(), "how many nodes are selected");
    for (std::size_t index = 0; index < nodes.size(); ++index)
      Require(nodes[index]->Handle() == expected.Node(static_cast<int>(index)), "a selected node");
    if (m_input.Flag()) return;
    const NodePtr first(Call([&] { return m_document.SelectNode(path, context); }));
    Require((first != nullptr) == (expected.Count() > 0), "whether a node is selected");
    if (first) Require(first->Handle() == expected.Node(0), "the first selected node");
  }

  void CompareReading(const std::string& path, DocumentNode* context, const Selected& expected) {
    const std::string text = expected.FirstText();
    const int fallback = m_input.Byte();
    const auto rounded = static_cast<float>(m_input.Of(kDefaults));
    switch (m_input.Below(4)) {
      case 0:
        return RequireSame(Call([&] { return m_document.GetSingleValue(path, context); }), text,
                           "a text");
      case 1:
        return RequireSame(Call([&] { return m_document.GetSingleValue(path, fallback, context); }),
                           IntOf(text, fallback), "an integer");
      case 2:
        return Require(
            Call([&] { return m_document.GetMultipleValues(path, context); }) == expected.Texts(),
            "texts");
      default:
        return Require(Call([&] { return m_document.GetNumericValue(path, rounded, context); }) ==
                           static_cast<double>(FloatOf(text, rounded)),
                       "a floating number");
    }
  }

  Document& m_document;
  Input& m_input;
  const NodePtr m_root;
  xmlNode* const m_rootNode;
  const XmlPtr<xmlXPathContext> m_searchContext;
  NodePtr m_start;  // what an earlier query selected
};

/// What deleting the selected nodes frees: the nodes, and how many the library counts.
struct Deletion {
  std::vector<xmlNode*> nodes;
  int count;
};

Deletion DeletionOf(xmlDoc* tree, const std::string& path) {
  const XmlPtr<xmlXPathContext> searchContext(xmlXPathNewContext(tree));
  const Selected selected(searchContext.get(), xmlDocGetRootElement(tree), path);
  Deletion deletion{selected.Nodes(), selected.Count()};
  const auto isDocument = [](const xmlNode* node) { return node->type == XML_DOCUMENT_NODE; };
  const auto end = std::remove_if(deletion.nodes.begin(), deletion.nodes.end(), isDocument);
  deletion.count -= static_cast<int>(deletion.nodes.end() - end);
  deletion.nodes.erase(end, deletion.nodes.end());
  return deletion;
}

/// Deletes what a path selects, in the library's document and in a tree of the same text.
void CompareDeletion(Document& document, const std::string& text, const std::string& path) {
  const XmlPtr<xmlDoc> tree(xmlParseMemory(text.data(), static_cast<int>(text.size())));
  const Deletion deletion = DeletionOf(tree.get(), path);
  FreeAll(deletion.nodes);
  RequireSame(Call([&] { return document.DeleteNodes(path); }), deletion.count,
              "how many nodes are deleted");
  xmlChar* left = nullptr;
  int size = 0;
  xmlDocDumpFormatMemory(tree.get(), &left, &size, 1);
  const XmlPtr<xmlChar> owned(left);
  RequireSame(document.DumpToString(), StringOf(left), "what a deletion leaves");
}

void CompareClosed(Document& document, const std::string& path) {
  Require(!document.GetNs("n") && !document.SaveToFile("-"), "a closed document");
  Require(!document.SaveToFile("") && !document.CreateSearchContext(), "a closed document");
  Require(!tests::NodePtr(document.SelectRootNode()), "the root of a closed document");
  Require(document.SelectNodes(path).empty(), "nodes of a closed document");
  RequireSame(document.GetSingleValue(path, 7, nullptr), 7, "an integer of a closed document");
  RequireSame(document.DeleteNodes(path), 0, "a deletion in a closed document");
  RequireSame(document.DumpToString(), "", "a dump of a closed document");
}

/// Entities within entities take a time that grows without bounds, in libxml2 already.
bool TakesTooLong(const std::string& text) {
  constexpr char kEntity[] = "<!ENTITY";
  const std::size_t first = text.find(kEntity);
  return first != std::string::npos && text.find(kEntity, first + 1) != std::string::npos &&
         text.find(kEntity, text.find(kEntity, first + 1) + 1) != std::string::npos;
}

void CompareAll(Document& document, const std::string& text, Input& choices) {
  {
    Comparison comparison(document, choices);
    for (std::size_t queries = 1 + choices.Below(3); queries > 0; --queries) comparison.Query();
    if (choices.Seldom(4)) comparison.ComparePoint();
    if (choices.Seldom(4)) comparison.CompareNamespace();
    if (choices.Seldom(4)) comparison.CompareDump();
  }
  const std::string path = choices.Of(kPaths);
  if (choices.Seldom(4)) CompareDeletion(document, text, path);
  if (!choices.Seldom(8)) return;
  document.Close();
  CompareClosed(document, path);
}

}  // namespace

void SetUp() {}

void RunOne(Input& input) {
  const std::string chosen = input.Text(48);
  Input choices(reinterpret_cast<const std::uint8_t*>(chosen.data()), chosen.size());
  const std::string text = input.Flag() ? MadeXml(input, 24) : input.Rest();
  if (TakesTooLong(text)) return;
  Document document;
  const bool isParsed = Call([&] { return document.ParseString(text); });
  if (isParsed) return CompareAll(document, text, choices);
  CompareClosed(document, kPaths[0]);
}

}  // namespace fuzz
