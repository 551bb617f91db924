#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"
#include "tests/support/Nodes.h"

namespace tests {

/// Attributes of an element that bind the prefixes "tt" and "ka" as the built-in settings do.
constexpr char kBindings[] =
    " xmlns:tt='http://www.onvif.org/ver10/schema'"
    " xmlns:ka='urn:kestal-com:schema:onvif:analytics:1'";

/// Text of a profile: `content` within a root element in no namespace that binds the prefixes.
inline std::string ProfileText(const std::string& content) {
  return std::string("<profile") + kBindings + ">" + content + "</profile>";
}

/// Text of an element with its namespace bindings, for content that is to be the root itself:
/// "tt:rule Type='A'" gives the start tag of such a rule.
inline std::string RootTag(const std::string& nameAndAttributes) {
  return "<" + nameAndAttributes + kBindings + ">";
}

/// One attribute of each node, in order; the nodes are deleted.
inline std::vector<std::string> Properties(const std::vector<analytics::DocumentNode*>& nodes,
                                           const std::string& name) {
  const std::vector<NodePtr> owned = Owned(nodes);
  std::vector<std::string> values;
  std::transform(owned.begin(), owned.end(), std::back_inserter(values),
                 [&name](const NodePtr& node) { return node->GetProperty(name); });
  return values;
}

MATCHER_P2(IsPoint, x, y, "") {
  *result_listener << "which is (" << arg.x << ", " << arg.y << ")";
  return arg.x == x && arg.y == y;
}

/// A profile whose search context binds no prefix, so that each of its own queries fails.
class UnboundProfile : public analytics::ProfileDoc {
 public:
  bool CreateSearchContext() override { return m_impl->CreateXPathContext(false); }
};

/// A closed profile under the built-in settings.
class ProfileTest : public testing::Test {
 protected:
  /// Opens the profile with `content` below its root element.
  void Parse(const std::string& content) { ParseWhole(ProfileText(content)); }

  /// Opens the profile with a text that brings its own root element.
  void ParseWhole(const std::string& text) { ASSERT_TRUE(m_profile.ParseString(text)) << text; }

  NodePtr Node(const std::string& path) { return First(m_profile, path); }

  /// The text, as it stands in the tree, of the first node that `path` selects.
  std::string Dump(const std::string& path) {
    const NodePtr node = Node(path);
    return node ? node->DumpToString() : "nothing at " + path;
  }

  analytics::ProfileDoc m_profile;
};

}  // namespace tests
