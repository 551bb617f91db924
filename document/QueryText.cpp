#include "document/QueryText.h"

namespace analytics {

QueryText& QueryText::AddToLong(const char* text, std::size_t length) {
  if (m_long.empty()) m_long.assign(m_short, m_length);
  m_long.append(text, length);
  m_length = m_long.size();
  return *this;
}

}  // namespace analytics
