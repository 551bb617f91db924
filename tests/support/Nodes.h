#pragma once

#include <memory>
#include <string>
#include <vector>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>

namespace tests {

using NodePtr = std::unique_ptr<analytics::DocumentNode>;

/// The first node that `path` selects; null if there is none.
inline NodePtr First(analytics::Document& document, const std::string& path,
                     analytics::DocumentNode* context = nullptr) {
  return NodePtr(document.SelectNode(path, context));
}

/// Takes over the nodes of a selection, so that they are freed with the test.
inline std::vector<NodePtr> Owned(const std::vector<analytics::DocumentNode*>& nodes) {
  return std::vector<NodePtr>(nodes.begin(), nodes.end());
}

/// All nodes that `path` selects.
inline std::vector<NodePtr> All(analytics::Document& document, const std::string& path,
                                analytics::DocumentNode* context = nullptr) {
  return Owned(document.SelectNodes(path, context));
}

}  // namespace tests
