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
  explicit OwnedNodes(std::vector<DocumentNode*> nodes) : m_nodes(std::move(nodes)) {}

  ~OwnedNodes() {
    for (DocumentNode* node : m_nodes) delete node;
  }

  OwnedNodes(const OwnedNodes&) = delete;
  OwnedNodes& operator=(const OwnedNodes&) = delete;

  void Reserve(std::size_t count) { m_nodes.reserve(count); }

  /// Adds a new handle; room for it must have been reserved, so that it cannot get lost.
  void Add(void* node) { m_nodes.push_back(new DocumentNode(node)); }

  std::vector<DocumentNode*> Release() { return std::exchange(m_nodes, {}); }

  std::vector<DocumentNode*>::const_iterator begin() const { return m_nodes.begin(); }
  std::vector<DocumentNode*>::const_iterator end() const { return m_nodes.end(); }

 private:
  std::vector<DocumentNode*> m_nodes;
};

}  // namespace analytics
