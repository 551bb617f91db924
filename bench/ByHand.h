#pragma once

#include <string>

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include "document/XmlHandle.h"

namespace bench {

// What the by-hand sides share. Of the library's code it uses the guards alone, which cost nothing.
using analytics::XmlPtr;

/// Text as libxml2 takes it; not copied.
const xmlChar* Xml(const char* text);

/// A copy of libxml2's text; null gives the empty string.
std::string Copy(const xmlChar* text);

/// The number that `text` starts with; the fallback for no text and for an empty one.
int Number(const xmlChar* text, int fallback);

/// A document as one holds it with libxml2 alone: the tree and the context of its queries.
struct Tree {
  XmlPtr<xmlDoc> document;
  XmlPtr<xmlXPathContext> queries;

  xmlNodePtr Root() const { return xmlDocGetRootElement(document.get()); }
};

/// Parses a profile and binds the prefixes "tt" and "ka".
Tree ParseProfile(const std::string& text);

/// Evaluates an expression from a node.
XmlPtr<xmlXPathObject> Evaluate(const Tree& tree, xmlNodePtr from, const char* query);

/// The first node that an expression selects; null if there is none.
xmlNodePtr First(const Tree& tree, xmlNodePtr from, const char* query);

XmlPtr<xmlChar> Attribute(xmlNodePtr node, const char* name);
int NumberAttribute(xmlNodePtr node, const char* name, int fallback);

/// The text of a node, null if it has none.
XmlPtr<xmlChar> Text(xmlNodePtr node);

/// The whole document as text.
std::string Dump(const Tree& tree);

}  // namespace bench
