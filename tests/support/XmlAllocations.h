#pragma once

#include <cstdlib>
#include <cstring>

#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

namespace tests {

/// Counts, for a scope, what libxml2 has allocated and not yet released.
///
/// This tells the input that leaks in any build; the leak checker tells only that one does.
class XmlAllocations {
 public:
  XmlAllocations() {
    xmlResetLastError();  // its texts must go back to where they came from
    xmlMemGet(&m_free, &m_malloc, &m_realloc, &m_strdup);
    xmlMemSetup(Free, Allocate, Reallocate, Duplicate);
  }
  ~XmlAllocations() {
    xmlResetLastError();
    xmlMemSetup(m_free, m_malloc, m_realloc, m_strdup);
  }

  XmlAllocations(const XmlAllocations&) = delete;
  XmlAllocations& operator=(const XmlAllocations&) = delete;

  /// How many more are alive than at another time in this scope.
  static long Alive() {
    xmlResetLastError();  // libxml2 keeps copies of texts for the last error
    return s_alive;
  }

 private:
  static void Free(void* memory) {
    if (memory) --s_alive;
    std::free(memory);
  }
  static void* Allocate(std::size_t size) {
    ++s_alive;
    return std::malloc(size);
  }
  static void* Reallocate(void* memory, std::size_t size) {
    if (!memory) ++s_alive;
    return std::realloc(memory, size);
  }
  static char* Duplicate(const char* text) {
    ++s_alive;
    return strdup(text);
  }

  inline static long s_alive = 0;

  xmlFreeFunc m_free = nullptr;
  xmlMallocFunc m_malloc = nullptr;
  xmlReallocFunc m_realloc = nullptr;
  xmlStrdupFunc m_strdup = nullptr;
};

}  // namespace tests
