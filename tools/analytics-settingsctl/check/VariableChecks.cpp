#include <algorithm>
#include <map>

#include <analytics/DocumentNode.h>

#include "check/Elements.h"
#include "check/LostAttributes.h"
#include "check/SettingsChecks.h"
#include "input/Attributes.h"
#include "input/Expansion.h"
#include "input/LineNumbers.h"
#include "input/VariableExpansions.h"
#include "input/VariableTable.h"

namespace settingsctl {
namespace {

/// The variables as the library finds them.
struct Variables {
  std::map<std::string, int> lines;  // of those that count
  VariableTable table;
};

bool IsVariable(const xmlNode* element) {
  return IsElement(element, "", "variable") && IsElement(element->parent, "", "variables");
}

/// What is missing in a definition, for a message; empty if it is complete.
std::string MissingPart(const CheckedSettings& settings, xmlNode* variable) {
  const bool hasLostName = CheckLostAttribute(settings.findings, variable, "name");
  const bool hasLostValue = CheckLostAttribute(settings.findings, variable, "value");
  if (hasLostName || hasLostValue) return {};
  if (PlainAttribute(variable, "name").empty()) return "name, so no reference can name it";
  if (HasPlainAttribute(variable, "value")) return {};
  return "value, so references to it give an empty text";
}

void CheckDefinition(const CheckedSettings& settings, xmlNode* variable) {
  const std::string missing = MissingPart(settings, variable);
  if (!missing.empty()) {
    settings.findings.Add("incomplete-variable", LineOf(variable),
                          "the variable has no " + missing);
  }
  const std::string name = PlainAttribute(variable, "name");
  if (name.find_first_of("}\"") == std::string::npos) return;
  settings.findings.Add("unreachable-variable", LineOf(variable),
                        "no reference can name the variable " + Quoted(name) +
                            ": a name ends at the first brace and cannot hold a double quote");
}

/// Adds a variable unless one of that name was defined before.
void AddVariable(const CheckedSettings& settings, xmlNode* element, Variables& variables) {
  const std::string name = PlainAttribute(element, "name");
  if (name.empty() || !HasPlainAttribute(element, "value")) return;
  variables.table.Add(name, PlainAttribute(element, "value"));
  const auto added = variables.lines.insert({name, LineOf(element)});
  if (added.second) return;
  settings.findings.Add("repeated-variable", LineOf(element),
                        "the variable " + Quoted(name) + " is ignored: the one on line " +
                            std::to_string(added.first->second) + " counts");
}

/// The texts of an element in which references may stand: its own text and its attributes.
std::vector<std::string> TextsOf(xmlNode* element) {
  std::vector<std::string> texts;
  for (xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
    texts.push_back(analytics::DocumentNode(attribute).GetValue());
  }
  for (const xmlNode* child = element->children; child; child = child->next) {
    const bool isText = child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE;
    if (isText) texts.emplace_back(reinterpret_cast<const char*>(child->content));
  }
  return texts;
}

/// Goes through the references of one text as the library's substitution does.
class References {
 public:
  References(const CheckedSettings& settings, const Variables& variables, int line)
      : m_findings(settings.findings), m_variables(variables), m_line(line) {}

  void Check(const std::string& text) const {
    std::size_t start = text.find("${");
    while (start != std::string::npos) {
      const std::size_t end = text.find('}', start);
      const std::size_t length = end == std::string::npos ? 0 : end - start - 2;
      if (length == 0) return AddBroken(end == std::string::npos ? text.substr(start) : "${}");
      CheckName(text.substr(start + 2, length));
      start = text.find("${", end);
    }
  }

 private:
  void AddBroken(const std::string& rest) const {
    m_findings.Add("broken-reference", m_line,
                   Quoted(rest) +
                       " is no complete reference: it ends the substitution, and what "
                       "follows stays as it is");
  }

  void CheckName(const std::string& name) const {
    if (m_variables.lines.count(name) != 0) return;
    m_findings.Add("undefined-reference", m_line,
                   "no variable " + Quoted(name) +
                       " is defined, so the reference gives an empty "
                       "text");
  }

  Findings& m_findings;
  const Variables& m_variables;
  const int m_line;
};

void AddCircle(const CheckedSettings& settings, const Variables& variables,
               const std::vector<std::string>& cycle) {
  // Told from its first name on, whichever of its variables it was found by.
  const std::string& first = *std::min_element(cycle.begin(), cycle.end());
  settings.findings.Add(
      "cyclic-reference", variables.lines.at(first),
      "the substitution of ${" + first + "} never ends: " + CycleText(cycle, first));
}

/// Looks for substitutions without end. Each is reported once: where it is met again, the
/// expansion goes on as if it had been mended.
void CheckExpansions(const CheckedSettings& settings, const Variables& variables) {
  VariableExpansions expansions(variables.table);
  for (const auto& [name, line] : variables.lines) {
    const VariableExpansion& expanded = expansions.Of(name);
    if (!expanded.expansion.cycle.empty()) {
      AddCircle(settings, variables, expanded.expansion.cycle);
    } else if (expanded.expansion.isTooLong && expanded.brokenBy.empty()) {
      settings.findings.Add("variable-too-long", line,
                            "the substitution of ${" + name + "} " + kGrowth +
                                ", which takes the library more time or memory than there is");
    }
  }
}

}  // namespace

void CheckVariables(const CheckedSettings& settings) {
  Variables variables;
  for (xmlNode* element : settings.elements) {
    if (!IsVariable(element)) continue;
    CheckDefinition(settings, element);
    AddVariable(settings, element, variables);
  }
  for (xmlNode* element : settings.elements) {
    const References references(settings, variables, LineOf(element));
    for (const std::string& text : TextsOf(element)) references.Check(text);
  }
  CheckExpansions(settings, variables);
}

}  // namespace settingsctl
