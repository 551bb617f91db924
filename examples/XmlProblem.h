#pragma once

#include <string>

#include <libxml/xmlerror.h>

namespace examples {

// What libxml2 first found wrong, on one line, instead of the reports that it would print itself.
class XmlProblem {
 public:
  XmlProblem() {
    // Constant from libxml2 2.12 on.
    xmlSetStructuredErrorFunc(
        this, [](void* self, auto* error) { static_cast<XmlProblem*>(self)->KeepFirst(*error); });
  }
  ~XmlProblem() { xmlSetStructuredErrorFunc(nullptr, nullptr); }

  XmlProblem(const XmlProblem&) = delete;
  XmlProblem& operator=(const XmlProblem&) = delete;

  const std::string& Text() const { return m_text; }

  // Forgets what was wrong with an earlier file.
  void Clear() { m_text.clear(); }

 private:
  void KeepFirst(const xmlError& error) {
    if (m_text.empty()) m_text = Sentence(error);
  }

  static std::string Sentence(const xmlError& error) {
    if (!error.message || error.domain == XML_FROM_IO) return "it cannot be read";
    std::string message = error.message;
    message.erase(message.find_last_not_of(" \n") + 1);
    return "line " + std::to_string(error.line) + ": " + message;
  }

  std::string m_text;
};

}  // namespace examples
