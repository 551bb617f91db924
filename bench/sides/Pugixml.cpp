#include "bench/sides/Pugixml.h"

#include <utility>

namespace bench {
namespace {

constexpr unsigned int kOptions = pugi::parse_default | pugi::parse_declaration;

/// Takes a dump as a text.
struct TextWriter : pugi::xml_writer {
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }

  std::string text;
};

}  // namespace

Pugixml Pugixml::Parse(const std::string& text) {
  Pugixml parsed;
  parsed.m_document->load_buffer(text.data(), text.size(), kOptions);
  return parsed;
}

Pugixml Pugixml::Load(const std::string& path) {
  Pugixml parsed;
  parsed.m_document->load_file(path.c_str(), kOptions);
  return parsed;
}

std::string Pugixml::Text(Node node) {
  return node.attribute() ? node.attribute().value() : node.node().child_value();
}

std::string Pugixml::Attribute(Node node, const char* name) {
  return node.node().attribute(name).value();
}

void Pugixml::SetAttribute(Node node, const char* name, const std::string& value) {
  node.node().attribute(name).set_value(value.c_str());
}

std::string Pugixml::Dump() const {
  TextWriter writer;
  m_document->save(writer);
  return std::move(writer.text);
}

}  // namespace bench
