#pragma once

#include <memory>
#include <string>

#include <pugixml.hpp>

namespace bench {

/// A document of pugixml, which has a tree and an XPath of its own; see ByHand. Its XPath knows no
/// namespaces: a prefix is a part of the name.
class Pugixml {
 public:
  static constexpr char kName[] = "pugixml";

  using Node = pugi::xpath_node;
  using Nodes = pugi::xpath_node_set;
  using Path = std::string;

  static Pugixml Parse(const std::string& text);
  static Pugixml Load(const std::string& path);

  Node Root() const { return m_document->document_element(); }
  Nodes Select(Node from, const Path& query) const {
    return from.node().select_nodes(query.c_str());
  }
  Node First(Node from, const Path& query) const { return from.node().select_node(query.c_str()); }

  static std::string Text(Node node);
  static int TextNumber(Node node, int fallback) { return node.node().text().as_int(fallback); }

  static std::string Attribute(Node node, const char* name);
  static int Number(Node node, const char* name) { return node.node().attribute(name).as_int(); }
  static void SetAttribute(Node node, const char* name, const std::string& value);
  static void Remove(Node node) { node.parent().remove_child(node.node()); }

  std::string Dump() const;
  bool Save(const std::string& path) const { return m_document->save_file(path.c_str()); }

 private:
  std::unique_ptr<pugi::xml_document> m_document = std::make_unique<pugi::xml_document>();
};

}  // namespace bench
