#include "input/VariableTable.h"

namespace settingsctl {

bool VariableTable::Add(const std::string& name, const std::string& value) {
  // The library's query has the name in double quotes, and an empty one is never looked up.
  if (name.empty() || name.find('"') != std::string::npos) return false;
  return m_values.insert({name, value}).second;
}

const std::string* VariableTable::Find(const std::string& name) const {
  const auto found = m_values.find(name);
  return found == m_values.end() ? nullptr : &found->second;
}

}  // namespace settingsctl
