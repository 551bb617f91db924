#pragma once

#include <string>

#include <libxml/xmlerror.h>

namespace examples {

// What libxml2 first found wrong, on one line, instead of the reports that it would print itself.
class XmlProblem {
 public:
  XmlProblem() { xmlSetStructuredErrorFunc(this, KeepFirst); }
  ~XmlProblem() { xmlSetStructuredErrorFunc(nullptr, nullptr); }

  XmlProblem(const XmlProblem&) = delete;
  XmlProblem& operator=(const XmlProblem&) = delete;

  const std::string& Text() const { return m_text; }

  // Forgets what was wrong with an earlier file.
  void Clear() { m_text.clear(); }

 private:
  static void KeepFirst(void* self, xmlErrorPtr error) {
    std::string& text = static_cast<XmlProblem*>(self)->m_text;
    if (text.empty()) text = Sentence(*error);
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
