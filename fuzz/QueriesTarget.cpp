// Makes trees and paths, plain ones and nearly plain ones, and compares what the library selects
// with what libxml2 selects on the same tree, before and after edits.

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <libxml/xpathInternals.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "document/DocumentImpl.h"
#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/Selected.h"
#include "fuzz/Target.h"
#include "fuzz/Tree.h"
#include "tests/support/Nodes.h"

namespace fuzz {
namespace {

using analytics::Document;
using analytics::DocumentNode;
using tests::NodePtr;

constexpr char kOnvifUri[] = "http://www.onvif.org/ver10/schema";
constexpr char kKestalUri[] = "urn:kestal-com:schema:onvif:analytics:1";

const char* const kUris[] = {kOnvifUri, "urn:new", ""};
const char* const kElements[] = {"a", "b", "o:a", "o:b", "k:a", "div", "a-1.b", "\xC3\xA9"};
const char* const kAttributes[] = {"x", "y", "o:x", "xml:lang", "xmlns:q"};
const char* const kValues[] = {"", "1", "A B", "it's", "&f;", "1&f;", "\xC3\xA9", "a&#9;b"};
const char* const kEdits[] = {"", "1", "&f;", "1&f;1", "\x01", "v"};
const char* const kContents[] = {"", "5", "<!--a-->", "<?a b?>", "<![CDATA[a]]>", "&f;", "&e;"};
const char* const kDefaults[] = {"", " xmlns='http://www.onvif.org/ver10/schema'", " xmlns=''"};

// The first holds a declaration whose content the axes of XPath reach, the second one whose content
// they do not.
const char* const kTypes[] = {
    "", "", "<!DOCTYPE r [<!ELEMENT r ANY><!ENTITY f 'v'><!ENTITY e \"<a x='1'/>5\">]>",
    "<!DOCTYPE r [<!ENTITY e \"<a x='1'><b/></a>\"><!ENTITY f ''><!ATTLIST a y CDATA '1'>]>"};

const char* const kSteps[] = {"a",        "b",      "tt:a",  "tt:b",    "ka:a", "div",
                              "a-1.b",    "*",      "xml:a", "z:a",     ".",    "..",
                              "\xC3\xA9", "text()", "tt:*",  "child::a"};
const char* const kConditions[] = {"",
                                   "",
                                   "",
                                   "[@x='1']",
                                   "[@x=\"A B\"]",
                                   "[@y='']",
                                   "[@x=\"it's\"]",
                                   "[@tt:x='1']",
                                   "[@x='v']",
                                   "[@x='1v']",
                                   "[1]",
                                   "[@x]",
                                   "[@x='\x01']",
                                   "[@x='\xC3\xA9']",
                                   "[@x='a\tb']",
                                   "['1'=@x]"};
const char* const kEnds[] = {"",    "",  "",    "/@x",     "/@y", "/@tt:x",
                             "/@*", "/", "//a", "/@xmlns", " ",   "/@xml:lang"};

/// A document that binds the prefixes of profiles.
class BindingDocument : public Document {
 public:
  bool CreateSearchContext() override { return m_impl->CreateXPathContext(true); }
};

/// Makes XML of few names in which much lies within its like.
class TreeMaker {
 public:
  explicit TreeMaker(Input& input) : m_input(input) {}

  std::string Make() {
    const std::string type = m_input.Of(kTypes);
    const bool hasEntities = !type.empty();
    std::string text = type + "<r xmlns:o='" + kOnvifUri + "' xmlns:k='" + kKestalUri + "'";
    text += m_input.Of(kDefaults) + std::string(">");
    for (int step = 0; step < 24 && !m_input.IsUsedUp(); ++step) text += Piece(hasEntities);
    for (; !m_open.empty(); m_open.pop_back()) text += "</" + m_open.back() + ">";
    return text + "</r>";
  }

 private:
  std::string Piece(bool hasEntities) {
    const std::size_t choice = m_input.Below(8);
    if (choice == 0 && !m_open.empty()) {
      const std::string name = m_open.back();
      m_open.pop_back();
      return "</" + name + ">";
    }
    if (choice == 1) {
      const std::string content = m_input.Of(kContents);
      return hasEntities || content[0] != '&' ? content : "";
    }
    const std::string name = m_input.Of(kElements);
    const std::string start = "<" + name + m_input.Of(kDefaults) + Attributes(hasEntities);
    if (choice == 2) return start + "/>";
    m_open.push_back(name);
    return start + ">";
  }

  std::string Attributes(bool hasEntities) {
    std::string attributes;
    const std::size_t choice = m_input.Below(32);
    for (std::size_t index = 0; index < 5; ++index) {
      if ((choice >> index & 1U) == 0) continue;
      std::string value = m_input.Of(kValues);
      if (!hasEntities && value.find("&f;") != std::string::npos) value = "1";
      if (index == 4 && value.empty()) continue;  // no prefix can be undeclared
      attributes += std::string(" ") + kAttributes[index] + "=\"" + value + "\"";
    }
    return attributes;
  }

  Input& m_input;
  std::vector<std::string> m_open;
};

std::string MadePath(Input& input) {
  std::string path = input.Flag() ? "//" : "";
  const std::size_t steps = 1 + input.Below(3);
  for (std::size_t step = 0; step < steps; ++step) {
    // Mostly what is plain: the first half of each table.
    path += step == 0 ? "" : "/";
    path += kSteps[input.Below(input.Seldom(4) ? 16 : 7)];
    path += kConditions[input.Below(input.Seldom(4) ? 16 : 7)];
  }
  path += kEnds[input.Below(input.Seldom(4) ? 12 : 5)];
  if (!input.Seldom(8)) return path;
  const std::size_t place = input.Below(path.size() + 1);
  return path.insert(place, 1, static_cast<char>(input.Byte()));
}

/// The library's document and libxml2's own evaluation, side by side.
class Comparison {
 public:
  Comparison(Document& document, Input& input)
      : m_document(document), m_input(input), m_root(document.SelectRootNode()) {
    auto* const root = static_cast<xmlNode*>(m_root->Handle());
    m_searchContext.reset(xmlXPathNewContext(root->doc));
    xmlXPathRegisterNs(m_searchContext.get(), XmlOf("tt"), XmlOf(kOnvifUri));
    xmlXPathRegisterNs(m_searchContext.get(), XmlOf("ka"), XmlOf(kKestalUri));
  }

  void Query() {
    const std::string path = MadePath(m_input);
    DocumentNode empty;
    DocumentNode* const contexts[] = {nullptr, m_chosen.get(), m_chosen.get(), &empty};
    DocumentNode* const context = m_input.Of(contexts);
    auto* const start = static_cast<xmlNode*>(context ? context->Handle() : m_root->Handle());
    const Selected expected(m_searchContext.get(), start, path);
    Compare(path, context, expected);
    if (expected.Count() > 0)
      Choose(expected.Node(static_cast<int>(m_input.Byte()) % expected.Count()));
  }

  /// Changes the tree at the node that was chosen last.
  void Edit() {
    if (!m_chosen || !m_chosen->Handle()) return;
    const auto* const node = static_cast<const xmlNode*>(m_chosen->Handle());
    if (node->type == XML_ATTRIBUTE_NODE) return m_chosen->SetNs(kOnvifUri, "");
    switch (m_input.Below(6)) {
      case 0:
        return m_chosen->SetProperty("x", m_input.Of(kEdits));
      case 1:
        return m_chosen->SetProperty("xmlns", m_input.Of(kEdits));
      case 2:
        return m_chosen->SetValue(m_input.Of(kEdits));
      case 3:
        return m_chosen->SetNs(m_input.Of(kUris), m_input.Flag() ? "p" : "");
      case 4:
        m_chosen.reset(m_chosen->AddNewChild(m_input.Of(kElements), m_input.Of(kEdits)));
        return;
      default:
        return Delete();
    }
  }

 private:
  void Compare(const std::string& path, DocumentNode* context, const Selected& expected) {
    const std::vector<NodePtr> nodes =
        tests::Owned(Call([&] { return m_document.SelectNodes(path, context); }));
    RequireSame(static_cast<int>(nodes.size()), expected.Count(), path.c_str());
    for (std::size_t index = 0; index < nodes.size(); ++index)
      Require(nodes[index]->Handle() == expected.Node(static_cast<int>(index)), path.c_str());
    const NodePtr first(Call([&] { return m_document.SelectNode(path, context); }));
    Require((first != nullptr) == (expected.Count() > 0), path.c_str());
    if (first) Require(first->Handle() == expected.Node(0), path.c_str());
    RequireSame(Call([&] { return m_document.GetSingleValue(path, context); }),
                expected.FirstText(), path.c_str());
  }

  void Choose(xmlNode* node) {
    if (node) m_chosen = std::make_unique<DocumentNode>(node);
  }

  /// Deletes what the path of no node that is still referred to selects.
  void Delete() {
    m_chosen.reset();
    Call([&] { return m_document.DeleteNodes("//a-1.b", nullptr); });
  }

  Document& m_document;
  Input& m_input;
  const NodePtr m_root;
  analytics::XmlPtr<xmlXPathContext> m_searchContext;
  NodePtr m_chosen;
};

}  // namespace

void SetUp() {
  setenv("ANALYTICS_INI", "/nonexistent", 1);
  analytics::Settings::OnvifPrefix();  // else the first input would make the settings
}

void RunOne(Input& input) {
  const std::string chosen = input.Text(64);
  Input choices(reinterpret_cast<const std::uint8_t*>(chosen.data()), chosen.size());
  BindingDocument document;
  const std::string text = TreeMaker(input).Make();
  if (!Call([&] { return document.ParseString(text); })) return;
  Comparison comparison(document, choices);
  for (int step = 0; step < 8 && !choices.IsUsedUp(); ++step) {
    comparison.Query();
    if (choices.Seldom(3)) comparison.Edit();
  }
}

}  // namespace fuzz
