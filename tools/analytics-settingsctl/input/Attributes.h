#pragma once

#include <string>

#include <libxml/tree.h>

namespace settingsctl {

/// The attributes of an element that queries find by a name without prefix: those in no namespace.
/// The library's own `GetProperty` looks at the local name alone, and so would find others too.

/// Whether there is such an attribute.
bool HasPlainAttribute(const xmlNode* element, const char* name);

/// Its value; empty where there is none.
std::string PlainAttribute(xmlNode* element, const char* name);

}  // namespace settingsctl
