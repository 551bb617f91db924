#pragma once

#include <cstddef>
#include <string>

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include "document/XmlHandle.h"

namespace bench {

// Of the library's code the sides use the guards of libxml2's objects alone, which cost nothing.
using analytics::XmlPtr;

/// Text as libxml2 takes it; not copied.
const xmlChar* Xml(const char* text);

/// A copy of libxml2's text; null gives the empty string.
std::string Copy(const xmlChar* text);

/// The number that `text` starts with; the fallback for no text and for an empty one.
int NumberOf(const xmlChar* text, int fallback);

/// A document as a careful programmer keeps it with libxml2 alone: the tree and the context of its
/// queries. What each side has is described here.
class ByHand {
 public:
  static constexpr char kName[] = "by hand";

  using Node = xmlNodePtr;   // also an attribute; false if there is none
  using Path = std::string;  // a query, made once where it stays the same

  /// Nodes as libxml2 gives them.
  class Nodes {
   public:
    explicit Nodes(XmlPtr<xmlXPathObject> result) : m_result(std::move(result)) {}

    Node* begin() const { return size() > 0 ? m_result->nodesetval->nodeTab : nullptr; }
    Node* end() const { return begin() + size(); }
    std::size_t size() const;

   private:
    XmlPtr<xmlXPathObject> m_result;
  };

  /// A profile, with the prefixes "tt" and "ka".
  static ByHand Parse(const std::string& text);

  /// A file without namespaces.
  static ByHand Load(const std::string& path);

  Node Root() const { return xmlDocGetRootElement(m_document.get()); }
  Nodes Select(Node from, const Path& query) const;
  Node First(Node from, const Path& query) const;

  /// The text of an element or attribute.
  static std::string Text(Node node);
  static int TextNumber(Node node, int fallback);

  static std::string Attribute(Node node, const char* name);
  static int Number(Node node, const char* name);
  static void SetAttribute(Node node, const char* name, const std::string& value);
  static void Remove(Node node);

  std::string Dump() const;
  bool Save(const std::string& path) const;

 protected:
  explicit ByHand(XmlPtr<xmlDoc> document);

 private:
  XmlPtr<xmlDoc> m_document;
  XmlPtr<xmlXPathContext> m_queries;
};

}  // namespace bench
