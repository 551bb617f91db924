#pragma once

#include <map>
#include <string>

#include <gtest/gtest.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"
#include "tests/settings/SubstitutionModel.h"
#include "tests/support/TimeLimit.h"

namespace tests {

/// Variables that are both loaded as settings and given to the model.
class SubstitutionVariables : public testing::Test {
 protected:
  void Define(const std::string& name, const std::string& value) { m_values[name] = value; }

  void LoadDefined() {
    std::string variables;
    for (const auto& [name, value] : m_values) {
      variables.append("<variable name='").append(name);
      variables.append("' value='").append(value).append("'/>");
    }
    ASSERT_TRUE(LoadContent(ElementOf("variables", variables)));
  }

  /// After a first difference no further ones are reported.
  void CheckText(const std::string& text) {
    if (HasFailure()) return;
    const TimeLimit limit;
    EXPECT_EQ(ModelOfSubstitution(text, m_lookup), analytics::Settings::SubstituteVariables(text))
        << "of " << testing::PrintToString(text);
  }

 private:
  std::map<std::string, std::string> m_values;
  const Lookup m_lookup = [this](const std::string& name) {
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::string() : found->second;
  };
};

/// Variables whose names and values are made of the characters that mean something.
///
/// Each value is shorter than the shortest reference to it, so that every substitution ends.
class SeparatorVariables : public SubstitutionVariables {
 protected:
  void SetUp() override {
    Define("a", "${");
    Define("aa", "}");
    Define("$", "{a}");
    Define("{", "$");
    Define("a$", "${}");
    Define("{{", "a");
    Define("${", "}$");
    LoadDefined();
  }

  /// Goes through all texts of up to `longest` separators and letters; gives their number.
  int CheckAllTexts(std::size_t longest, const std::string& begin = "") {
    CheckText(begin);
    if (begin.size() == longest) return 1;
    int count = 1;
    for (const char character : {'$', '{', '}', 'a', '"'}) {
      count += CheckAllTexts(longest, begin + character);
    }
    return count;
  }
};

}  // namespace tests
