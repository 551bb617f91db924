#pragma once

#include <memory>
#include <string>

#include <libxml++/libxml++.h>

namespace bench {

/// A document of libxml++, libxml2's wrapper for C++ with exceptions; see ByHand.
class Libxmlpp {
 public:
  static constexpr char kName[] = "libxml++";

  using Node = xmlpp::Node*;
  using Nodes = xmlpp::NodeSet;
  using Path = Glib::ustring;

  static Libxmlpp Parse(const std::string& text);
  static Libxmlpp Load(const std::string& path);

  Node Root() const { return m_parser->get_document()->get_root_node(); }
  Nodes Select(Node from, const Path& query) const { return from->find(query, m_prefixes); }
  Node First(Node from, const Path& query) const;

  static std::string Text(Node node);
  static int TextNumber(Node node, int fallback);

  static std::string Attribute(Node node, const char* name);
  static int Number(Node node, const char* name);
  static void SetAttribute(Node node, const char* name, const std::string& value);
  static void Remove(Node node);

  std::string Dump() const;
  bool Save(const std::string& path) const;

 private:
  std::unique_ptr<xmlpp::DomParser> m_parser = std::make_unique<xmlpp::DomParser>();
  xmlpp::Node::PrefixNsMap m_prefixes;
};

}  // namespace bench
