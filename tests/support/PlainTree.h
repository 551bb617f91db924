#pragma once

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <libxml/parser.h>
#include <libxml/tree.h>

namespace tests {

/// A second reading of XML text to compare the library with: parsed by libxml2 alone and read by
/// walking through the tree, without XPath and without the functions that the library reads with.
struct TreeDelete {
  void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};
using TreePtr = std::unique_ptr<xmlDoc, TreeDelete>;

inline TreePtr ParsedAlone(const std::string& text) {
  return TreePtr(xmlParseMemory(text.data(), static_cast<int>(text.size())));
}

inline std::string TextOf(const xmlChar* text) {
  return text ? reinterpret_cast<const char*>(text) : "";
}

inline std::string NameOf(xmlNodePtr node) { return TextOf(node->name); }

inline void AddElements(xmlNodePtr first, std::vector<xmlNodePtr>& elements) {
  for (xmlNodePtr node = first; node; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    elements.push_back(node);
    AddElements(node->children, elements);
  }
}

/// All elements below a document or an element, in document order.
inline std::vector<xmlNodePtr> ElementsBelow(xmlNodePtr parent) {
  std::vector<xmlNodePtr> elements;
  AddElements(parent->children, elements);
  return elements;
}

inline std::vector<xmlNodePtr> ElementsOf(xmlDoc& tree) {
  return ElementsBelow(reinterpret_cast<xmlNodePtr>(&tree));
}

/// Whether an element or attribute is in this namespace, "" standing for none.
inline bool IsIn(const std::string& uri, const xmlNs* ns) {
  return ns ? TextOf(ns->href) == uri : uri.empty();
}

/// Whether an element has this namespace and name.
inline bool Is(xmlNodePtr node, const std::string& uri, const std::string& name) {
  return node->type == XML_ELEMENT_NODE && NameOf(node) == name && IsIn(uri, node->ns);
}

/// Those of the elements that have this namespace and name.
inline std::vector<xmlNodePtr> Named(std::vector<xmlNodePtr> elements, const std::string& uri,
                                     const std::string& name) {
  const auto isOther = [&](xmlNodePtr node) { return !Is(node, uri, name); };
  elements.erase(std::remove_if(elements.begin(), elements.end(), isOther), elements.end());
  return elements;
}

/// The text between an element's tags but not within its child elements.
inline std::string OwnText(const xmlNode* firstChild) {
  std::string text;
  for (const xmlNode* node = firstChild; node; node = node->next) {
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
      text += TextOf(node->content);
    }
  }
  return text;
}

/// Those texts that are not empty.
inline std::vector<std::string> WithoutEmpty(std::vector<std::string> texts) {
  texts.erase(std::remove(texts.begin(), texts.end(), std::string()), texts.end());
  return texts;
}

/// An attribute in no namespace; null if the element has none of this name.
inline const xmlAttr* PlainAttribute(xmlNodePtr element, const std::string& name) {
  for (const xmlAttr* found = element->properties; found; found = found->next) {
    if (TextOf(found->name) == name && !found->ns) return found;
  }
  return nullptr;
}

/// Text of the first attribute of this local name, in whatever namespace; empty if there is none.
inline std::string AttributeText(xmlNodePtr element, const std::string& name) {
  for (const xmlAttr* found = element->properties; found; found = found->next) {
    if (TextOf(found->name) == name) return OwnText(found->children);
  }
  return "";
}

/// The number that a text begins with, as typed values are read.
inline int LeadingInt(const std::string& text, int fallback) {
  if (text.find_first_not_of(" \t\n\v\f\r") == std::string::npos) return fallback;
  const long number = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
}

/// The indented text of a tree, up to its first NUL.
inline std::string DumpOf(xmlDoc& tree) {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemory(&tree, &text, &size, 1);
  std::string copy = TextOf(text);
  xmlFree(text);
  return copy;
}

}  // namespace tests
