#include "check/Checks.h"

#include <map>

#include "check/CheckTables.h"

namespace settingsctl {
namespace {

const std::vector<Check> kFileChecks = {
    {"unreadable", "any", Severity::kError, "the file cannot be read, or is empty",
     "Name a file that exists, that you may read and that is not empty.",
     "analytics-settingsctl check no-such-file.ini"},
    {"not-well-formed", "any", Severity::kError,
     "the file is not well-formed XML, so the library reads nothing of it",
     "Mend the XML at that line first: all other checks wait for it.",
     "<maxResource>80000</maxResources>"},
};

std::vector<Check> JoinedTables() {
  std::vector<Check> all = kFileChecks;
  for (const auto* table : {&SettingsCheckTable(), &ProfileCheckTable()}) {
    all.insert(all.end(), table->begin(), table->end());
  }
  return all;
}

std::map<std::string, const Check*> NamedChecks() {
  std::map<std::string, const Check*> named;
  for (const Check& check : AllChecks()) named[check.name] = &check;
  return named;
}

}  // namespace

const std::vector<Check>& AllChecks() {
  static const std::vector<Check> s_all = JoinedTables();
  return s_all;
}

const Check* FindCheck(const std::string& name) {
  static const std::map<std::string, const Check*> s_named = NamedChecks();
  const auto found = s_named.find(name);
  return found == s_named.end() ? nullptr : found->second;
}

const char* SeverityName(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

}  // namespace settingsctl
