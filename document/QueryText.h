#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace analytics {

/// The text of a query while it is put together. One of usual length takes no memory of its own:
/// most queries are over in less time than that takes.
class QueryText {
 public:
  QueryText() { m_short[0] = '\0'; }

  QueryText& Add(const char* text) { return Add(text, std::strlen(text)); }
  QueryText& Add(const std::string& text) { return Add(text.data(), text.size()); }

  const char* c_str() const { return m_length < sizeof m_short ? m_short : m_long.c_str(); }

 private:
  QueryText& Add(const char* text, std::size_t length) {
    if (m_length + length >= sizeof m_short) return AddToLong(text, length);
    std::memcpy(m_short + m_length, text, length);
    m_length += length;
    m_short[m_length] = '\0';
    return *this;
  }

  QueryText& AddToLong(const char* text, std::size_t length);

  char m_short[192];
  std::string m_long;  // all of it, once m_short is too short
  std::size_t m_length = 0;
};

}  // namespace analytics
