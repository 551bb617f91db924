#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

namespace settingsctl {

/// The values of variables, as the library's query for each would find them.
class VariableTable {
 public:
  /// Takes a variable that has a value; those of one name are to come in document order.
  ///
  /// @return whether it counts: only the first of a name does, if a query can name it at all
  bool Add(const std::string& name, const std::string& value);

  /// The value; null for a variable that the library does not find and takes for empty.
  const std::string* Find(const std::string& name) const;

  std::size_t Size() const { return m_values.size(); }

 private:
  std::unordered_map<std::string, std::string> m_values;
};

}  // namespace settingsctl
