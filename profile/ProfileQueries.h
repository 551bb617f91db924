#pragma once

#include <string>

#include "document/QueryText.h"

namespace analytics {

/// Adds to a query the ONVIF element `localName`, with the settings' prefix.
void AddOnvifName(QueryText& query, const char* localName);

/// Adds to a query the vendor's element `localName`, with the settings' prefix.
void AddKestalName(QueryText& query, const char* localName);

/// All elements of a name in the document, those of one type only if `type` is not empty.
std::string ElementQry(const std::string& prefix, const std::string& tag, const std::string& type);

/// The rules of a type, all if it is empty.
std::string RuleQry(const std::string& type);

/// The items of a kind below a rule or engine, or below its "Parameters" element.
QueryText ItemsQry(const char* tag, bool throughParameters);

}  // namespace analytics
