#pragma once

#include <string>

#include <analytics/Settings.h>

namespace analytics {

/// The ONVIF element `localName` as it is written in a query, with the settings' prefix.
inline std::string OnvifName(const std::string& localName) {
  return Settings::OnvifPrefix() + ":" + localName;
}

/// The vendor's element `localName` as it is written in a query, with the settings' prefix.
inline std::string KestalName(const std::string& localName) {
  return Settings::KestalPrefix() + ":" + localName;
}

}  // namespace analytics
