#pragma once

#include <vector>

#include <libxml/tree.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>

#include "fuzz/Input.h"

namespace fuzz {

using analytics::DocumentNode;

/// A node of the library's tree and the same node of the other tree.
struct Pair {
  xmlNode* node;
  xmlNode* other;
};

/// Nodes that two trees have in common, those taken out of them included; but not the texts of
/// attributes.
///
/// Keeps to what callers promise: a node that was freed is not used again, and a namespace record
/// is not freed while a node elsewhere is in it.
class NodePairs {
 public:
  NodePairs(analytics::Document& document, xmlDoc* other);

  /// Frees what was taken out of the trees.
  ~NodePairs();

  NodePairs(const NodePairs&) = delete;
  NodePairs& operator=(const NodePairs&) = delete;

  Pair Any(Input& input) const;
  void Add(const Pair& pair) { m_pairs.push_back(pair); }

  /// Moves or inserts a node in both trees, as the library describes it.
  void AddChild(const Pair& parent, const Pair& child);

  /// Takes a node out of both trees, and frees it if that leaves no namespace dangling.
  void Unlink(const Pair& pair, bool free);

  /// Whether nodes of the other tree can be freed: no namespace that they declare is used
  /// elsewhere.
  bool MayFree(const std::vector<xmlNode*>& others) const;
  bool MayLoseChildren(const Pair& pair) const;

  /// Drops the pairs within nodes of the other tree, which are about to be freed.
  void Forget(const std::vector<xmlNode*>& others);
  void ForgetChildren(const Pair& pair);

  /// Requires that both trees, and what was taken out of them, are the same.
  void Compare() const;

 private:
  void AddTree(xmlNode* node, xmlNode* other);
  void ForgetWhatAttributeReplaces(const Pair& parent, const Pair& child);

  const Pair m_top;  // the documents, which are always the first pair
  std::vector<Pair> m_pairs;
  std::vector<Pair> m_detached;  // the tops of what was taken out
};

}  // namespace fuzz
