#pragma once

#include <string>

#include <analytics/Settings.h>

namespace analytics {

/// The beginning of a query, with room for all of it unless names are long: most are made in one
/// piece of memory.
inline std::string EmptyQuery() {
  std::string query;
  query.reserve(128);
  return query;
}

/// Adds to a query the ONVIF element `localName`, with the settings' prefix.
inline void AddOnvifName(std::string& query, const char* localName) {
  query.append(Settings::OnvifPrefix()).append(1, ':').append(localName);
}

/// Adds to a query the vendor's element `localName`, with the settings' prefix.
inline void AddKestalName(std::string& query, const char* localName) {
  query.append(Settings::KestalPrefix()).append(1, ':').append(localName);
}

/// All elements of a name in the document, those of one type only if `type` is not empty.
inline std::string ElementQry(const std::string& prefix, const std::string& tag,
                              const std::string& type) {
  std::string query = EmptyQuery();
  query.append("//").append(prefix).append(1, ':').append(tag);
  if (!type.empty()) query.append("[@Type=\"").append(type).append("\"]");
  return query;
}

/// The rules of a type, all if it is empty.
inline std::string RuleQry(const std::string& type) {
  const std::string prefix = Settings::OnvifPrefix();
  return ElementQry(prefix, Settings::RuleTag(), type);
}

}  // namespace analytics
