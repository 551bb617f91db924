#pragma once

#include <libxml/tree.h>

namespace analytics {

/// Sets libxml2's process-wide indentation switch for a scope.
class Indentation {
 public:
  explicit Indentation(int indents) : m_former(xmlIndentTreeOutput) {
    xmlIndentTreeOutput = indents;
  }
  ~Indentation() { xmlIndentTreeOutput = m_former; }

  Indentation(const Indentation&) = delete;
  Indentation& operator=(const Indentation&) = delete;

 private:
  const int m_former;
};

}  // namespace analytics
