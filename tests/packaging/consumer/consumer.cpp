// A runtime as its makers build it: with nothing of this project but what it gives them.

#include <iostream>
#include <memory>

#include <analytics/Calibration.h>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>
#include <analytics/Version.h>

int main() {
  analytics::ProfileDoc profile;
  if (!profile.ParseString("<p xmlns='http://www.onvif.org/ver10/schema'><rule Type='A'/></p>")) {
    return 1;
  }
  const std::unique_ptr<analytics::DocumentNode> rule(profile.SelectRule("A"));
  analytics::Calibration calibration;
  profile.GetCalibration(calibration, rule.get());
  std::cout << rule->GetProperty("Type") << " " << analytics::Settings::RuleTag() << " "
            << calibration.PhysicalHeight() << " " << ANALYTICS_SETTINGS_VERSION << "\n";
  return 0;
}
