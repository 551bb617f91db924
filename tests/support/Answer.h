#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <libxml/tree.h>

#include <analytics/Document.h>

#include "tests/support/Nodes.h"

namespace tests {

/// Nodes as a selection hands them out, taken over without another allocation.
struct NodeList {
  explicit NodeList(std::vector<analytics::DocumentNode*> selected) : nodes(std::move(selected)) {}
  NodeList(NodeList&& other) noexcept : nodes(std::exchange(other.nodes, {})) {}
  NodeList& operator=(NodeList&& other) noexcept {
    nodes.swap(other.nodes);
    return *this;
  }
  ~NodeList() {
    for (analytics::DocumentNode* node : nodes) delete node;
  }

  std::vector<analytics::DocumentNode*> nodes;
};

/// A namespace record as the library hands it out; may be null.
struct NsRecord {
  void* record;
};

/// What an operation of the library answers, held without another allocation.
using Answer = std::variant<std::monostate, bool, int, std::int64_t, double, std::string,
                            std::vector<std::string>, NodePtr, NodeList, NsRecord>;

/// Writes an answer as text.
struct AnswerText {
  std::string operator()(std::monostate /*none*/) const { return "nothing"; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(double value) const {
    std::ostringstream text;  // with a point, whatever the machine's locale has
    text << std::fixed << value;
    return text.str();
  }
  std::string operator()(int value) const { return std::to_string(value); }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(const std::string& text) const { return "'" + text + "'"; }
  std::string operator()(const std::vector<std::string>& texts) const {
    std::string all;
    for (const std::string& text : texts) all += "'" + text + "'";
    return "[" + all + "]";
  }
  std::string operator()(const NodePtr& node) const { return NodeText(node.get()); }
  std::string operator()(const NodeList& list) const {
    std::string all;
    for (analytics::DocumentNode* node : list.nodes) all += NodeText(node);
    return "[" + all + "]";
  }
  std::string operator()(const NsRecord& ns) const {
    if (!ns.record) return "null";
    const xmlChar* const uri = static_cast<xmlNsPtr>(ns.record)->href;
    return uri ? reinterpret_cast<const char*>(uri) : "no URI";
  }

  static std::string NodeText(analytics::DocumentNode* node) {
    if (!node) return "null";
    return node->Handle() ? node->DumpToString() : "empty node";
  }
};

inline std::string TextOf(const Answer& answer) { return std::visit(AnswerText(), answer); }

}  // namespace tests
