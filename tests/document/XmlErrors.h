#pragma once

#include <cstddef>
#include <vector>

#include <libxml/xmlerror.h>

namespace analytics {

/// Collects what libxml2 reports in a scope, instead of having it written to standard error.
class XmlErrors {
 public:
  XmlErrors()
      : m_handler(xmlStructuredError),
        m_context(xmlStructuredErrorContext),
        m_printer(xmlGenericError),
        m_printerContext(xmlGenericErrorContext) {
    m_codes.reserve(kMost);
    xmlSetStructuredErrorFunc(this, Note);
    xmlSetGenericErrorFunc(this, Drop);
  }
  ~XmlErrors() {
    xmlSetGenericErrorFunc(m_printerContext, m_printer);
    xmlSetStructuredErrorFunc(m_context, m_handler);
  }

  XmlErrors(const XmlErrors&) = delete;
  XmlErrors& operator=(const XmlErrors&) = delete;

  /// Codes of the first reports, such as `XML_XPATH_EXPR_ERROR`, in order.
  const std::vector<int>& Codes() const { return m_codes; }

 private:
  // Room is made beforehand, because an exception must not travel through libxml2.
  static constexpr std::size_t kMost = 100;

  static void Note(void* self, xmlErrorPtr error) {
    std::vector<int>& codes = static_cast<XmlErrors*>(self)->m_codes;
    if (codes.size() < kMost) codes.push_back(error->code);
  }

  // A few reports come as text only, beside a structured one.
  static void Drop(void* /*context*/, const char* /*format*/, ...) {}

  const xmlStructuredErrorFunc m_handler;
  void* const m_context;
  const xmlGenericErrorFunc m_printer;
  void* const m_printerContext;
  std::vector<int> m_codes;
};

}  // namespace analytics
