// The example of the README: which rules of a profile are active.

#include <iostream>
#include <string>

#include <analytics/ProfileDoc.h>

int main() {
  analytics::ProfileDoc profile;  // the settings file is found and loaded on first use
  if (!profile.ParseFile("profile.xml")) return 1;
  for (const std::string& type : profile.ActiveRules()) std::cout << type << "\n";
  return 0;
}
