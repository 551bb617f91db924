#include "bench/sides/Libxmlpp.h"

#include <cstdlib>

#include "bench/sides/Names.h"

namespace bench {
namespace {

xmlpp::Element& ElementOf(xmlpp::Node* node) { return *static_cast<xmlpp::Element*>(node); }

int NumberOf(const std::string& text, int fallback) {
  return text.empty() ? fallback : static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

}  // namespace

Libxmlpp Libxmlpp::Parse(const std::string& text) {
  Libxmlpp parsed;
  parsed.m_parser->parse_memory_raw(reinterpret_cast<const unsigned char*>(text.data()),
                                    static_cast<xmlpp::Parser::size_type>(text.size()));
  parsed.m_prefixes = {{"tt", kOnvifUri}, {"ka", kVendorUri}};
  return parsed;
}

Libxmlpp Libxmlpp::Load(const std::string& path) {
  Libxmlpp parsed;
  parsed.m_parser->parse_file(path);
  return parsed;
}

Libxmlpp::Node Libxmlpp::First(Node from, const Path& query) const {
  const Nodes nodes = Select(from, query);
  return nodes.empty() ? nullptr : nodes.front();
}

std::string Libxmlpp::Text(Node node) {
  if (!node) return std::string();
  const auto* const attribute = dynamic_cast<const xmlpp::Attribute*>(node);
  if (attribute) return attribute->get_value();
  const xmlpp::TextNode* const text = ElementOf(node).get_child_text();
  return text ? std::string(text->get_content()) : std::string();
}

int Libxmlpp::TextNumber(Node node, int fallback) { return NumberOf(Text(node), fallback); }

std::string Libxmlpp::Attribute(Node node, const char* name) {
  return ElementOf(node).get_attribute_value(name);
}

int Libxmlpp::Number(Node node, const char* name) { return NumberOf(Attribute(node, name), 0); }

void Libxmlpp::SetAttribute(Node node, const char* name, const std::string& value) {
  ElementOf(node).set_attribute(name, value);
}

void Libxmlpp::Remove(Node node) { node->get_parent()->remove_child(node); }

std::string Libxmlpp::Dump() const { return m_parser->get_document()->write_to_string_formatted(); }

bool Libxmlpp::Save(const std::string& path) const {
  m_parser->get_document()->write_to_file_formatted(path);
  return true;
}

}  // namespace bench
