#pragma once

#include <string>
#include <vector>

#include <libxml/xmlerror.h>

namespace tests {

/// Collects what libxml2 reports in a scope, instead of having it written to standard error.
class XmlErrors {
 public:
  XmlErrors()
      : m_handler(xmlStructuredError),
        m_context(xmlStructuredErrorContext),
        m_printer(xmlGenericError),
        m_printerContext(xmlGenericErrorContext) {
    // Constant from libxml2 2.12 on.
    xmlSetStructuredErrorFunc(
        this, [](void* self, auto* error) { static_cast<XmlErrors*>(self)->Note(*error); });
    xmlSetGenericErrorFunc(this, Drop);
  }
  ~XmlErrors() {
    xmlSetGenericErrorFunc(m_printerContext, m_printer);
    xmlSetStructuredErrorFunc(m_context, m_handler);
  }

  XmlErrors(const XmlErrors&) = delete;
  XmlErrors& operator=(const XmlErrors&) = delete;

  /// Codes of the reports, such as `XML_XPATH_EXPR_ERROR`, in order.
  const std::vector<int>& Codes() const { return m_codes; }

  /// The XPath expressions whose evaluation failed, as evaluated, in order.
  ///
  /// Where no prefix is bound every query of a profile fails, so this shows the queries themselves.
  const std::vector<std::string>& Queries() const { return m_queries; }

 private:
  // No exception may travel through libxml2.
  void Note(const xmlError& error) noexcept {
    m_codes.push_back(error.code);
    if (error.domain == XML_FROM_XPATH && error.str1) m_queries.emplace_back(error.str1);
  }

  // A few reports come as text only, beside a structured one.
  static void Drop(void* /*context*/, const char* /*format*/, ...) {}

  const xmlStructuredErrorFunc m_handler;
  void* const m_context;
  const xmlGenericErrorFunc m_printer;
  void* const m_printerContext;
  std::vector<int> m_codes;
  std::vector<std::string> m_queries;
};

}  // namespace tests
