#pragma once

#include <cstddef>

#include <libxml/xmlmemory.h>

namespace analytics {

/// Leaves libxml2 without memory for a scope: each of its allocations fails.
class NoXmlMemory {
 public:
  NoXmlMemory() {
    xmlMemGet(&m_free, &m_malloc, &m_realloc, &m_strdup);
    xmlMemSetup(
        m_free, [](std::size_t /*size*/) -> void* { return nullptr; },
        [](void* /*memory*/, std::size_t /*size*/) -> void* { return nullptr; },
        [](const char* /*text*/) -> char* { return nullptr; });
  }
  ~NoXmlMemory() { xmlMemSetup(m_free, m_malloc, m_realloc, m_strdup); }

  NoXmlMemory(const NoXmlMemory&) = delete;
  NoXmlMemory& operator=(const NoXmlMemory&) = delete;

 private:
  xmlFreeFunc m_free = nullptr;
  xmlMallocFunc m_malloc = nullptr;
  xmlReallocFunc m_realloc = nullptr;
  xmlStrdupFunc m_strdup = nullptr;
};

}  // namespace analytics
