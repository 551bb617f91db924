#pragma once

#include <cstddef>
#include <string>

#include <analytics/Settings.h>

namespace analytics {

/// Room for all of a query but the names that callers give: it is made in one piece of memory.
constexpr std::size_t kQueryRoom = 128;

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
  std::string query;
  query.reserve(kQueryRoom + tag.size() + type.size());
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
