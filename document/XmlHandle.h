#pragma once

#include <memory>

#include <libxml/tree.h>
#include <libxml/xpath.h>

namespace analytics {

/// Releases what libxml2 hands out; the only place that calls its free functions for handles.
struct XmlDelete {
  void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
  void operator()(xmlXPathContext* context) const noexcept { xmlXPathFreeContext(context); }
  void operator()(xmlXPathObject* result) const noexcept { xmlXPathFreeObject(result); }
  void operator()(xmlBuffer* buffer) const noexcept { xmlBufferFree(buffer); }
  void operator()(xmlChar* text) const noexcept { xmlFree(text); }
};

template <typename T>
using XmlPtr = std::unique_ptr<T, XmlDelete>;

static_assert(sizeof(XmlPtr<xmlDoc>) == sizeof(xmlDocPtr), "a guard costs nothing");

}  // namespace analytics
