#pragma once

#include <string>
#include <vector>

#include <libxml/xpath.h>

#include "document/XmlHandle.h"

namespace fuzz {

/// What libxml2 itself selects, evaluated beside the library in a search context of the target's.
class Selected {
 public:
  /// `searchContext` belongs to the tree that `start` is in; without one nothing is selected.
  Selected(xmlXPathContext* searchContext, xmlNode* start, const std::string& path);

  int Count() const;

  /// A selected node; null for a namespace node, of which the result holds a copy.
  xmlNode* Node(int index) const;

  /// The text of the first node; "" if nothing is selected.
  std::string FirstText() const;

  /// The texts of all nodes that have one.
  std::vector<std::string> Texts() const;

  /// All selected nodes but namespace nodes.
  std::vector<xmlNode*> Nodes() const;

 private:
  const analytics::XmlPtr<xmlXPathObject> m_result;
};

/// Whether a node is one of `nodes` or lies below one.
bool LiesWithin(const xmlNode* node, const std::vector<xmlNode*>& nodes);

/// Frees the nodes from their tree, those within others with these.
void FreeAll(const std::vector<xmlNode*>& nodes);

}  // namespace fuzz
