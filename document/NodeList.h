#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include <libxml/tree.h>

namespace analytics {

/// Nodes in the order in which they were added. A few take no memory of their own: most queries are
/// for one.
class NodeList {
 public:
  NodeList() = default;

  NodeList(const NodeList&) = delete;
  NodeList& operator=(const NodeList&) = delete;

  void Add(xmlNodePtr node) {
    if (m_count == m_room) Grow();
    m_nodes[m_count++] = node;
  }

  int Count() const { return m_count; }

  /// The nodes; valid until one is added.
  xmlNodePtr* Nodes() { return m_nodes; }

 private:
  static constexpr int kFew = 16;

  void Grow() {
    const int room = 2 * m_room;
    auto more = std::make_unique<xmlNodePtr[]>(static_cast<std::size_t>(room));
    std::copy_n(m_nodes, m_count, more.get());
    m_many = std::move(more);
    m_nodes = m_many.get();
    m_room = room;
  }

  xmlNodePtr m_few[kFew];
  std::unique_ptr<xmlNodePtr[]> m_many;
  xmlNodePtr* m_nodes = m_few;
  int m_count = 0;
  int m_room = kFew;
};

}  // namespace analytics
