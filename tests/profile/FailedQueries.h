#pragma once

#include <string>
#include <vector>

#include <libxml/xmlerror.h>

namespace tests {

/// Keeps, for a scope, the texts of the XPath expressions whose evaluation fails, and keeps libxml2
/// from reporting them on standard error.
///
/// Where no prefix is bound every query of a profile fails, so this shows the queries themselves.
class FailedQueries {
 public:
  FailedQueries() { xmlSetStructuredErrorFunc(this, &FailedQueries::Note); }
  ~FailedQueries() { xmlSetStructuredErrorFunc(nullptr, nullptr); }

  FailedQueries(const FailedQueries&) = delete;
  FailedQueries& operator=(const FailedQueries&) = delete;

  const std::vector<std::string>& Texts() const { return m_texts; }

 private:
  static void Note(void* self, xmlErrorPtr error) {
    if (error->domain != XML_FROM_XPATH || !error->str1) return;
    static_cast<FailedQueries*>(self)->m_texts.push_back(error->str1);
  }

  std::vector<std::string> m_texts;
};

}  // namespace tests
