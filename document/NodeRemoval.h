#pragma once

#include <libxml/tree.h>

namespace analytics {

/// Takes a node out of its tree and frees it with its subtree.
///
/// The document node is left alone: the document owns it, and only closing the document frees it.
///
/// @return whether the node was freed
inline bool RemoveNode(xmlNodePtr node) {
  if (node->type == XML_DOCUMENT_NODE) return false;
  xmlUnlinkNode(node);
  xmlFreeNode(node);
  return true;
}

}  // namespace analytics
