#pragma once

#include <memory>
#include <vector>

#include <analytics/DocumentNode.h>

namespace settingsctl {

/// Whatever the library hands out as a node is the caller's to delete.
using NodePtr = std::unique_ptr<analytics::DocumentNode>;
using NodePtrs = std::vector<NodePtr>;

inline NodePtrs Owned(const std::vector<analytics::DocumentNode*>& nodes) {
  return NodePtrs(nodes.begin(), nodes.end());
}

}  // namespace settingsctl
