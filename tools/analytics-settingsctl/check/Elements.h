#pragma once

#include <string>
#include <vector>

#include <libxml/tree.h>

namespace settingsctl {

/// Small questions about elements, for checks of a file's structure.

/// Local name; without a prefix.
std::string NameOf(const xmlNode* element);

/// URI of the element's namespace; empty for one in none.
std::string NamespaceOf(const xmlNode* element);

/// The name as it is written, with its prefix.
std::string WrittenName(const xmlNode* element);

/// Whether the element has a name and is in a namespace. False for null and for other nodes.
bool IsElement(const xmlNode* node, const std::string& uri, const std::string& name);

/// Value of an attribute, as the library reads it.
std::string Attribute(xmlNode* element, const char* name);

/// Value of an attribute as an integer, as the library reads it; 0 if it is absent or blank.
int IntAttribute(xmlNode* element, const char* name);

/// Whether the text has nothing but white space, so that the library takes it for missing.
bool IsBlank(const std::string& text);

/// The element children that have a name and are in a namespace, in order.
std::vector<xmlNode*> Children(xmlNode* element, const std::string& uri, const std::string& name);

}  // namespace settingsctl
