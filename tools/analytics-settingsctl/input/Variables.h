#pragma once

#include <string>
#include <vector>

#include "input/Expansion.h"
#include "input/SettingsFile.h"
#include "input/VariableTable.h"

namespace settingsctl {

/// A variable that texts can refer to.
struct Variable {
  std::string name;
  std::string value;     ///< as it is written
  std::string expanded;  ///< as the library substitutes it; empty where there is a problem
  std::string problem;   ///< "never ends: a -> a" and the like; else empty
  int line;
};

/// The variables of the file that the library has loaded, in document order; of several with one
/// name only the first with a value counts.
std::vector<Variable> Variables(const SettingsFile& file);

/// The values of the same variables.
VariableTable TableOf(const SettingsFile& file);

/// Has the library substitute variables wherever it can do so in a short time. It goes through all
/// variables for each reference, so where both are many, the expansion's own text is the answer:
/// it follows the library's substitution step by step.
class Substitution {
 public:
  explicit Substitution(const VariableTable& variables) : m_variables(variables) {}

  /// @param expansion  of `text`, whole and without a problem
  std::string Of(const std::string& text, const Expansion& expansion);

 private:
  const VariableTable& m_variables;
  std::size_t m_visitsLeft = 2000000;  // of variables; less than a second
};

}  // namespace settingsctl
