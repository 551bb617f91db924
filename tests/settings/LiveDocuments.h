#pragma once

#include <libxml/tree.h>

#include "tests/support/NodeHooks.h"

namespace tests {

/// Counts the documents that libxml2 has made and not yet freed, for a scope. One at a time.
class LiveDocuments {
 public:
  LiveDocuments()
      : m_registered(HookMadeNodes(NoteMade)), m_deregistered(HookFreedNodes(NoteFreed)) {
    s_count = 0;
  }
  ~LiveDocuments() {
    HookMadeNodes(m_registered);
    HookFreedNodes(m_deregistered);
  }

  LiveDocuments(const LiveDocuments&) = delete;
  LiveDocuments& operator=(const LiveDocuments&) = delete;

  int Count() const { return s_count; }

 private:
  static void NoteMade(xmlNodePtr node) {
    if (node->type == XML_DOCUMENT_NODE) ++s_count;
  }

  static void NoteFreed(xmlNodePtr node) {
    if (node->type == XML_DOCUMENT_NODE) --s_count;
  }

  static inline int s_count = 0;

  const xmlRegisterNodeFunc m_registered;
  const xmlDeregisterNodeFunc m_deregistered;
};

}  // namespace tests
