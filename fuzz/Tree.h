#pragma once

#include <string>
#include <vector>

#include <libxml/tree.h>

namespace fuzz {

/// libxml2's text as a string; null gives "".
std::string StringOf(const xmlChar* text);

/// A text as libxml2 takes it.
const xmlChar* XmlOf(const std::string& text);

/// The text of a node's own text children, read from the tree by hand. Null gives "".
std::string TextOf(const xmlNode* node);

/// The first attribute of a local name, in whatever namespace; null if there is none.
const xmlAttr* Property(const xmlNode* element, const std::string& name);
std::string PropertyText(const xmlNode* element, const std::string& name);

/// The attribute of a name that is in no namespace, as "@name" selects it; null if there is none.
const xmlAttr* PlainAttribute(const xmlNode* element, const std::string& name);
std::string PlainText(const xmlNode* element, const std::string& name);

/// Whether a node is the element of a local name in a namespace; "" is no namespace.
bool IsElement(const xmlNode* node, const std::string& uri, const std::string& name);

/// The node behind `node` in document order within the tree below `top`; null at the end. Entity
/// references and a document type are not entered.
xmlNode* NextInOrder(xmlNode* node, const xmlNode* top);

/// The elements of a name among the children of each of `parents`.
std::vector<xmlNode*> ChildrenOf(const std::vector<xmlNode*>& parents, const std::string& uri,
                                 const std::string& name);

/// All elements of a name below a document, in document order.
std::vector<xmlNode*> ElementsOf(xmlDoc* document, const std::string& uri, const std::string& name);

}  // namespace fuzz
