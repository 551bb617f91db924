#pragma once

#include <cstddef>
#include <cstring>

#include <libxml/xpath.h>

#include "document/NodeList.h"

namespace analytics {

/// A piece of a path's text.
struct PathText {
  const char* begin;
  std::size_t length;

  bool IsEmpty() const { return length == 0; }

  /// Whether it equals a text of libxml2, which may be null.
  bool Equals(const xmlChar* text) const {
    const char* const other = reinterpret_cast<const char*>(text);
    if (!other || (length > 0 && *other != *begin)) return false;  // as for most without a call
    return std::strncmp(other, begin, length) == 0 && other[length] == '\0';
  }

  bool Equals(const PathText& other) const {
    return length == other.length && std::memcmp(begin, other.begin, length) == 0;
  }
};

/// Elements of a name and, where `attribute` is not empty, with `value` in that attribute.
struct PathStep {
  PathText name;
  const char* uri;  // null: in no namespace; owned by the search context
  PathText attribute;
  PathText value;
};

/// Whether a node is what a step selects; uncertain where only libxml2 can tell.
enum class PathAnswer { kNo, kYes, kUncertain };

/// A path of the shape that nearly all queries have, answered by a walk over the tree:
///
///   [//]name[@attribute='text']/.../name[@attribute='text'][/@attribute]
///
/// with or without bound prefixes of elements. The walk gives what libxml2's evaluation gives, in
/// the same order. Any other path, and any node that such a path cannot be decided on with
/// certainty, is left to libxml2.
class PlainPath {
 public:
  /// Reads a path. What it refers to must outlive it and stay as it is.
  PlainPath(const char* text, xmlXPathContextPtr searchContext);

  /// Appends the selected nodes to `found`, in document order.
  ///
  /// @param start      where a path without "//" starts
  /// @param firstOnly  whether to end at the first
  /// @return whether the walk was certain; if not, `found` means nothing
  bool Select(xmlNodePtr start, bool firstOnly, NodeList& found) const;

 private:
  static constexpr int kMostSteps = 8;

  bool Read(const char* text, xmlXPathContextPtr searchContext);
  bool WalkAll(bool firstOnly, NodeList& found) const;
  bool WalkSteps(xmlNodePtr top, bool firstOnly, NodeList& found) const;
  PathAnswer MatchUpwards(const xmlNode* node) const;
  void Take(xmlNodePtr element, NodeList& found) const;

  PathStep m_steps[kMostSteps];  // those beyond m_count are not set
  int m_count = 0;
  PathText m_attribute{};  // of the last element; empty: the element itself is selected
  xmlDocPtr m_document;
  bool m_isAnywhere = false;  // whether the path starts with "//"
  bool m_isPlain;
};

}  // namespace analytics
