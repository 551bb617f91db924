#pragma once

#include <algorithm>
#include <vector>

#include <libxml/tree.h>

#include "tests/support/NodeHooks.h"

namespace analytics {

/// Watches which nodes libxml2 frees in a scope. One at a time.
class FreedNodes {
 public:
  FreedNodes() : m_former(tests::HookFreedNodes(Note)) { Freed().clear(); }
  ~FreedNodes() { tests::HookFreedNodes(m_former); }

  FreedNodes(const FreedNodes&) = delete;
  FreedNodes& operator=(const FreedNodes&) = delete;

  /// How often the node of this handle was freed.
  long Count(const void* node) const { return std::count(Freed().begin(), Freed().end(), node); }

 private:
  static std::vector<const void*>& Freed() {
    static std::vector<const void*> s_freed;
    return s_freed;
  }

  static void Note(xmlNodePtr node) { Freed().push_back(node); }

  const xmlDeregisterNodeFunc m_former;
};

}  // namespace analytics
