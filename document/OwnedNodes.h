#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include <analytics/DocumentNode.h>

namespace analytics {

/// Node handles that are deleted with their list, unless they are released to a caller.
class OwnedNodes {
 public:
  OwnedNodes() = default;

  ~OwnedNodes() {
    for (DocumentNode* node : m_nodes) delete node;
  }

  OwnedNodes(const OwnedNodes&) = delete;
  OwnedNodes& operator=(const OwnedNodes&) = delete;

  void Reserve(std::size_t count) { m_nodes.reserve(count); }

  /// Adds a new handle; room for it must have been reserved, so that it cannot get lost.
  void Add(void* node) { m_nodes.push_back(new DocumentNode(node)); }

  std::vector<DocumentNode*> Release() { return std::exchange(m_nodes, {}); }

 private:
  std::vector<DocumentNode*> m_nodes;
};

}  // namespace analytics
