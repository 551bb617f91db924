// Edits a document step by step, does the same to a second tree with libxml2 alone, and compares
// the trees after each step.

#include <string>
#include <vector>

#include <libxml/parser.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/MadeXml.h"
#include "fuzz/NodePairs.h"
#include "fuzz/NumberModel.h"
#include "fuzz/Selected.h"
#include "fuzz/Target.h"
#include "fuzz/Tree.h"
#include "tests/support/Nodes.h"

namespace fuzz {
namespace {

using analytics::Document;
using analytics::XmlPtr;
using tests::NodePtr;

const char* const kNames[] = {"a", "b", "x", "y", "n:x", "nosuch:x", ""};
const char* const kTexts[] = {"",    "t", "5 ", "-7", "a&amp;b", "&#65;",
                              "&e;", "&", "<",  " ",  "0.25m"};
const char* const kUris[] = {"urn:n", "urn:m", "urn:d", "urn:new", ""};
const char* const kPrefixes[] = {"n", "m", "q", "xml", ""};
const char* const kPaths[] = {"//a",      "//x",         "b",    "//@x",
                              "//text()", "//comment()", "a[2]", "//a | //b"};

const xmlChar* XmlOrNull(const std::string& text) { return text.empty() ? nullptr : XmlOf(text); }

/// The library's tree and the other.
class Comparison {
 public:
  Comparison(Document& document, xmlDoc* other, Input& input)
      : m_document(document), m_other(other), m_input(input), m_pairs(document, other) {}

  void Step() {
    Operate();
    m_pairs.Compare();
  }

 private:
  void Operate() {
    const Pair pair = m_pairs.Any(m_input);
    switch (m_input.Below(13)) {
      case 0:
        return AddNewChild(pair);
      case 1:
      case 2:
        return m_pairs.AddChild(pair, m_pairs.Any(m_input));
      case 3:
        return SetValue(pair);
      case 4:
        return SetProperty(pair);
      case 5:
      case 6:
        return SetNs(pair);
      case 7:
        return ReconciliateNs(pair);
      case 8:
        return m_pairs.Unlink(pair, m_input.Flag());
      case 9:
        return Delete();
      case 10:
        return CompareDump(pair);
      case 11:
        return UseEmptyNode(pair);
      default:
        return CompareReading(pair);
    }
  }

  void AddNewChild(const Pair& pair) {
    const std::string name = m_input.Of(kNames);
    std::string text = m_input.Of(kTexts);
    DocumentNode node(pair.node);
    const int number = m_input.Byte() - 128;
    const bool isNumber = m_input.Flag();
    if (isNumber) text = std::to_string(number);
    const NodePtr added(Call(
        [&] { return isNumber ? node.AddNewChild(name, number) : node.AddNewChild(name, text); }));
    xmlNode* const other = xmlNewChild(pair.other, nullptr, XmlOrNull(name), XmlOrNull(text));
    Require(added && (added->Handle() != nullptr) == (other != nullptr), "a new child");
    if (other) m_pairs.Add({static_cast<xmlNode*>(added->Handle()), other});
  }

  void SetValue(const Pair& pair) {
    if (!m_pairs.MayLoseChildren(pair)) return;
    m_pairs.ForgetChildren(pair);
    DocumentNode node(pair.node);
    const std::string text = m_input.Of(kTexts);
    if (m_input.Flag()) {
      Call([&] { node.SetValue(text); });
      xmlNodeSetContent(pair.other, XmlOrNull(text));
      return;
    }
    const int number = m_input.Byte() - 128;
    Call([&] { node.SetValue(number); });
    xmlNodeSetContent(pair.other, XmlOf(std::to_string(number)));
  }

  void SetProperty(const Pair& pair) {
    const std::string name = m_input.Of(kNames);
    std::string text = m_input.Of(kTexts);
    DocumentNode node(pair.node);
    if (m_input.Flag()) {
      const int number = m_input.Byte() - 128;
      text = std::to_string(number);
      Call([&] { node.SetProperty(name, number); });
    } else {
      Call([&] { node.SetProperty(name, text); });
    }
    if (!name.empty()) xmlSetProp(pair.other, XmlOf(name), XmlOrNull(text));
  }

  void SetNs(const Pair& pair) {
    const std::string uri = m_input.Of(kUris);
    const std::string prefix = m_input.Of(kPrefixes);
    DocumentNode node(pair.node);
    Call([&] { node.SetNs(uri, prefix); });
    const xmlNode* const root = xmlDocGetRootElement(m_other);
    xmlNs* ns = root ? root->ns : nullptr;
    while (ns && !xmlStrEqual(ns->href, XmlOf(uri))) ns = ns->next;
    if (!ns) ns = xmlNewNs(pair.other, XmlOrNull(uri), XmlOrNull(prefix));
    xmlSetNs(pair.other, ns);
  }

  void ReconciliateNs(const Pair& pair) {
    Call([&] { DocumentNode(pair.node).ReconciliateNs(); });
    xmlReconciliateNs(m_other, pair.other);
  }

  void Delete() {
    const std::string path = m_input.Of(kPaths);
    std::vector<xmlNode*> nodes;
    int count = 0;
    {
      const XmlPtr<xmlXPathContext> searchContext(xmlXPathNewContext(m_other));
      const Selected selected(searchContext.get(), xmlDocGetRootElement(m_other), path);
      nodes = selected.Nodes();
      count = selected.Count();
    }
    if (!m_pairs.MayFree(nodes)) return;
    m_pairs.Forget(nodes);
    FreeAll(nodes);
    RequireSame(Call([&] { return m_document.DeleteNodes(path); }), count,
                "how many nodes are deleted");
  }

  void CompareDump(const Pair& pair) {
    const XmlPtr<xmlBuffer> buffer(xmlBufferCreate());
    xmlNodeDump(buffer.get(), m_other, pair.other, 0, 0);
    RequireSame(Call([&] { return DocumentNode(pair.node).DumpToString(); }),
                StringOf(xmlBufferContent(buffer.get())), "a dump of a node");
  }

  /// Nothing comes of a node that is none, whatever is done with it.
  void UseEmptyNode(const Pair& pair) {
    const std::string name = m_input.Of(kNames);
    const int number = m_input.Byte();
    DocumentNode empty;
    DocumentNode node;
    node.Handle(pair.node);
    empty.SetValue(name);
    empty.SetProperty(name, name);
    empty.SetProperty(name, number);
    empty.AddChild(&node);
    node.AddChild(&empty);
    node.AddChild(nullptr);
    empty.Unlink(m_input.Flag());
    empty.SetNs(name, name);
    empty.ReconciliateNs();
    Require(!NodePtr(empty.AddNewChild(name, name)), "a new child of an empty node");
    RequireSame(empty.GetValue() + empty.GetProperty(name) + empty.DumpToString(), "", "a text");
    RequireSame(empty.GetValue(number), number, "a number of an empty node");
    RequireSame(empty.GetProperty(name, number), number, "an attribute of an empty node");
    Require(empty.GetNumericProperty(name, number) == number, "a number of an empty node");
  }

  void CompareReading(const Pair& pair) {
    const std::string name = m_input.Of(kNames);
    const int fallback = m_input.Byte();
    DocumentNode node(pair.node);
    const std::string text = TextOf(pair.other);
    RequireSame(Call([&] { return node.GetValue(); }), text, "a text");
    RequireSame(Call([&] { return node.GetValue(fallback); }), IntOf(text, fallback), "a number");
    const std::string property = name.empty() ? name : PropertyText(pair.other, name);
    RequireSame(Call([&] { return node.GetProperty(name); }), property, "an attribute");
    RequireSame(Call([&] { return node.GetProperty(name, fallback); }), IntOf(property, fallback),
                "an integer");
    Require(Call([&] { return node.GetNumericProperty(name, fallback); }) ==
                DoubleOf(property, fallback),
            "a double");
  }

  Document& m_document;
  xmlDoc* const m_other;
  Input& m_input;
  NodePairs m_pairs;
};

}  // namespace

void SetUp() {}

void RunOne(Input& input) {
  const std::string chosen = input.Text(96);
  Input choices(reinterpret_cast<const std::uint8_t*>(chosen.data()), chosen.size());
  const std::string text = MadeXml(input, 12);
  Document document;
  Require(Call([&] { return document.ParseString(text); }), "a made document is well-formed");
  const XmlPtr<xmlDoc> other(xmlParseMemory(text.data(), static_cast<int>(text.size())));
  Comparison comparison(document, other.get(), choices);
  for (int step = 0; step < 12 && !choices.IsUsedUp(); ++step) comparison.Step();
}

}  // namespace fuzz
