#pragma once

#include <string>

#include "document/XmlHandle.h"

namespace analytics {

/// The nodes that one XPath expression selects, in document order; the library's only evaluation.
///
/// An expression that is invalid or gives no node set selects nothing, and neither does any
/// expression without a search context.
class Selection {
 public:
  /// Evaluates `path` from `contextNode`, which may be null, and leaves it as the search context's
  /// current node.
  Selection(xmlXPathContextPtr searchContext, xmlNodePtr contextNode, const std::string& path);

  int Count() const { return m_count; }

  /// A selected node; null for a namespace node, which dies with this object.
  xmlNodePtr Node(int index) const;

  /// The text of the first node; "" if nothing is selected.
  std::string FirstText() const;

  /// Takes all selected nodes out of their tree and frees them; call it once.
  ///
  /// @return how many nodes were freed, namespace nodes, of which the result holds copies, included
  int Delete();

 private:
  XmlPtr<xmlXPathObject> m_result;
  int m_count;
};

}  // namespace analytics
