#pragma once

#include <stdexcept>
#include <string>

#include "tests/support/TemporaryDirectory.h"

namespace tests {

/// The settings files that come with the sources, below the folder of the test data.
inline const char* const kSettingsFiles[] = {
    "../../examples/analytics.ini",
    "onvif/schema.ini",
    "onvif/service.ini",
};

/// The profiles and other documents that come with the sources.
inline const char* const kDocumentFiles[] = {
    "../../examples/profile.xml",
    "onvif/ExtendedProfile.xml",
    "onvif/GetAnalyticsModulesResponse.xml",
    "onvif/GetProfileResponse.xml",
    "onvif/GetRulesResponse.xml",
    "onvif/GetVideoAnalyticsConfigurationsResponse.xml",
};

inline std::string SamplePath(const std::string& file) {
  return std::string(ANALYTICS_TEST_DATA) + "/" + file;
}

/// All bytes of a sample, which has to be there.
inline std::string SampleText(const std::string& file) {
  std::string text = FileText(SamplePath(file));
  if (text.empty()) throw std::runtime_error("cannot read " + SamplePath(file));
  return text;
}

/// "onvif/GetRulesResponse.xml" as the name of a test: "GetRulesResponse".
inline std::string SampleName(const std::string& file) {
  const std::string name = file.substr(file.rfind('/') + 1);
  return name.substr(0, name.rfind('.'));
}

}  // namespace tests
