#pragma once

#include <libxml/tree.h>

namespace analytics {

// libxml2 calls its switch deprecated from 2.14 on.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

/// Sets libxml2's process-wide indentation switch for a scope.
class Indentation {
 public:
  explicit Indentation(int indents) : m_former(xmlIndentTreeOutput) {
    xmlIndentTreeOutput = indents;
  }
  ~Indentation() { xmlIndentTreeOutput = m_former; }

  /// What the switch is now.
  static int Current() { return xmlIndentTreeOutput; }

  Indentation(const Indentation&) = delete;
  Indentation& operator=(const Indentation&) = delete;

 private:
  const int m_former;
};

#pragma GCC diagnostic pop

}  // namespace analytics
