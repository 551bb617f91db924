#pragma once

#include <string>

#include <analytics/DocumentNode.h>

#include "document/NodeList.h"
#include "document/XmlHandle.h"

namespace analytics {

/// The node that a query starts from: that of `context`, which may be null, or the root element of
/// `document` if `context` is null.
xmlNodePtr ContextNode(xmlDocPtr document, DocumentNode* context);

/// The nodes that one XPath expression selects, in document order; the library's only evaluation.
///
/// An expression that is invalid or gives no node set selects nothing, and neither does any
/// expression without a search context.
class Selection {
 public:
  /// How many of the nodes are wanted.
  enum Extent { kAll, kFirst };

  /// Evaluates `path` from the context node, and leaves that as the search context's current node.
  /// A plain path is answered by a walk over the tree, any other by libxml2.
  ///
  /// @param searchContext  null for a document that is not open; nothing else is looked at then
  Selection(xmlXPathContextPtr searchContext, DocumentNode* context, const char* path,
            Extent extent = kAll);

  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

  int Count() const { return m_count; }

  /// A selected node; null for a namespace node, which dies with this object.
  xmlNodePtr Node(int index) const;

  /// The text of a selected node as the document reads it, even one of another document; "" for a
  /// namespace node.
  std::string Text(int index) const;

  /// The text of the first node; "" if nothing is selected.
  std::string FirstText() const;

  /// Takes all selected nodes out of their tree and frees them; call it once.
  ///
  /// @return how many nodes were freed, namespace nodes, of which the result holds copies, included
  int Delete();

 private:
  xmlXPathContextPtr m_searchContext;
  NodeList m_walked;                // what a walk found
  XmlPtr<xmlXPathObject> m_result;  // what libxml2 found
  xmlNodePtr* m_nodes = nullptr;    // of the one or the other
  int m_count = 0;
};

}  // namespace analytics
