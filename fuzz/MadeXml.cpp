#include "fuzz/MadeXml.h"

#include <vector>

namespace fuzz {
namespace {

const char* const kNames[] = {"a", "b", "c", "x", "y", "n:a", "n:b", "m:x"};
const char* const kTexts[] = {"",    " ",    "5",    "-42",         " 12px",        "abc",
                              "3.7", "1e9",  "0x1F", "99999999999", "-99999999999", "2em",
                              "\n",  "&amp;"};

/// Declares the prefixes that names use, so that they always are.
constexpr char kDeclarations[] = R"( xmlns:n="urn:n" xmlns:m="urn:m")";
const char* const kMoreDeclarations[] = {"", " xmlns=\"urn:d\"", " xmlns:n=\"urn:m\"",
                                         " xmlns:q=\"urn:n\"", " xmlns=\"\""};

/// A document as far as it is written, and the elements that are still open in it.
class Maker {
 public:
  explicit Maker(Input& input) : m_input(input) { Open("r", kDeclarations); }

  void Step() {
    switch (m_input.Below(8)) {
      case 0:
      case 1:
        return OpenAny();
      case 2:
        return m_open.size() > 1 ? Close() : Add(" ", "", "");
      case 3:
        return AddEmpty(m_input.Of(kNames));
      case 4:
        return Add("", m_input.Of(kTexts), "");
      case 5:
        return Add("", Escaped(m_input.Text(8)), "");
      case 6:
        return Add("<!--", m_input.Of(kNames), "-->");
      default:
        return AddSection();
    }
  }

  std::string Finish() {
    while (!m_open.empty()) Close();
    return m_text;
  }

 private:
  void Open(const std::string& name, const std::string& declarations) {
    m_text += "<" + name + declarations + (m_open.empty() ? "" : Attributes()) + ">";
    m_open.push_back(name);
  }

  void OpenAny() {
    const char* const name = m_input.Of(kNames);  // first, whatever order a compiler prefers
    Open(name, m_input.Of(kMoreDeclarations));
  }

  void Close() {
    m_text += "</" + m_open.back() + ">";
    m_open.pop_back();
  }

  void Add(const std::string& start, const std::string& middle, const std::string& end) {
    m_text += start + middle + end;
  }

  void AddEmpty(const std::string& name) { m_text += "<" + name + Attributes() + "/>"; }

  void AddSection() {
    if (m_input.Flag()) return Add("<![CDATA[", m_input.Of(kTexts), "]]>");
    Add("<?p ", m_input.Of(kNames), "?>");
  }

  std::string Attributes() {
    const std::size_t choice = m_input.Below(16);
    std::string attributes;
    if (choice & 1U) attributes += std::string(" x=\"") + m_input.Of(kTexts) + "\"";
    if (choice & 2U) attributes += " y=\"" + Escaped(m_input.Text(6)) + "\"";
    if (choice & 4U) attributes += " n:x=\"7\"";
    return attributes;
  }

  Input& m_input;
  std::string m_text;
  std::vector<std::string> m_open;
};

}  // namespace

std::string MadeXml(Input& input, std::size_t steps) {
  Maker maker(input);
  for (std::size_t step = 0; step < steps && !input.IsUsedUp(); ++step) maker.Step();
  return maker.Finish();
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char byte : text) {
    const auto code = static_cast<unsigned char>(byte);
    const bool isBlank = byte == '\t' || byte == '\n' || byte == '\r';
    if (code >= 0x7F || (code < ' ' && !isBlank)) continue;
    if (byte == '<' || byte == '>' || byte == '&' || byte == '"' || isBlank) {
      escaped += "&#" + std::to_string(code) + ";";
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

}  // namespace fuzz
