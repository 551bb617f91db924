#include <map>
#include <set>

#include "check/Elements.h"
#include "check/SettingsChecks.h"
#include "input/Expansion.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

/// A variable as the library finds it.
struct Variable {
  int line;
  std::string value;
};

using Variables = std::map<std::string, Variable>;

bool IsVariable(const xmlNode* element) {
  return IsElement(element, "", "variable") && IsElement(element->parent, "", "variables");
}

bool HasAttribute(xmlNode* element, const char* name) {
  return xmlHasProp(element, reinterpret_cast<const xmlChar*>(name)) != nullptr;
}

/// What is missing in a definition, for a message; empty if it is complete.
std::string MissingPart(xmlNode* variable) {
  if (Attribute(variable, "name").empty()) return "name, so no reference can name it";
  if (!HasAttribute(variable, "value")) return "value, so references to it give an empty text";
  return {};
}

void CheckDefinition(const CheckedSettings& settings, xmlNode* variable) {
  const std::string missing = MissingPart(variable);
  if (!missing.empty()) {
    settings.findings.Add("incomplete-variable", LineOf(variable),
                          "the variable has no " + missing);
  }
  const std::string name = Attribute(variable, "name");
  if (name.find_first_of("}\"") == std::string::npos) return;
  settings.findings.Add("unreachable-variable", LineOf(variable),
                        "no reference can name the variable " + Quoted(name) +
                            ": a name ends at the first brace and cannot hold a double quote");
}

/// Adds a variable unless one of that name was defined before.
void AddVariable(const CheckedSettings& settings, xmlNode* element, Variables& variables) {
  const std::string name = Attribute(element, "name");
  if (name.empty() || !HasAttribute(element, "value")) return;
  const auto added = variables.insert({name, {LineOf(element), Attribute(element, "value")}});
  if (added.second) return;
  settings.findings.Add("repeated-variable", LineOf(element),
                        "the variable " + Quoted(name) + " is ignored: the one on line " +
                            std::to_string(added.first->second.line) + " counts");
}

/// The texts of an element in which references may stand: its own text and its attributes.
std::vector<std::string> TextsOf(xmlNode* element) {
  std::vector<std::string> texts;
  for (const xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
    texts.push_back(Attribute(element, reinterpret_cast<const char*>(attribute->name)));
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
    if (m_variables.count(name) != 0) return;
    m_findings.Add("undefined-reference", m_line,
                   "no variable " + Quoted(name) +
                       " is defined, so the reference gives an empty "
                       "text");
  }

  Findings& m_findings;
  const Variables& m_variables;
  const int m_line;
};

/// Looks for circles. What was followed to its end once need not be followed again, so each
/// variable's value is gone through once.
class Circles {
 public:
  Circles(const CheckedSettings& settings, const Variables& variables)
      : m_findings(settings.findings), m_variables(variables) {}

  void CheckFrom(const std::string& name) {
    const Expansion expansion = TryExpansion(
        "${" + name + "}", [this](const std::string& looked) { return ValueOf(looked); });
    m_followed.insert(expansion.names.begin(), expansion.names.end());
    if (expansion.cycle.empty()) return;
    m_findings.Add("cyclic-reference", m_variables.at(expansion.cycle.front()).line,
                   "the substitution of ${" + expansion.cycle.front() +
                       "} never ends: " + CycleText(expansion.cycle));
  }

 private:
  std::string ValueOf(const std::string& name) const {
    if (name.find('"') != std::string::npos) return "";  // no query finds such a name
    const auto found = m_variables.find(name);
    return m_followed.count(name) != 0 || found == m_variables.end() ? "" : found->second.value;
  }

  Findings& m_findings;
  const Variables& m_variables;
  std::set<std::string> m_followed;
};

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
  Circles circles(settings, variables);
  for (const auto& [name, variable] : variables) circles.CheckFrom(name);
}

}  // namespace settingsctl
