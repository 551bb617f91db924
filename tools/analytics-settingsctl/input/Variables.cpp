#include "input/Variables.h"

#include <unordered_map>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "Transformed.h"
#include "input/LineNumbers.h"
#include "input/Nodes.h"
#include "input/VariableExpansions.h"
#include "input/XmlInput.h"

namespace settingsctl {
namespace {

// What the library searches of a result for each reference, in letters that cost as much as a
// variable does.
constexpr std::size_t kLettersOfAVisit = 1000;

/// A variable as it is written.
struct Definition {
  std::string name;
  std::string value;
  bool hasValue;
  int line;
};

using Values = std::unordered_map<const xmlNode*, std::string>;

/// One attribute of all variables, by their elements: a query for each variable would go through
/// all of them every time. As in the library's own query, it must not be in a namespace.
NodePtrs Attributes(analytics::Document& document, const std::string& name) {
  return Owned(document.SelectNodes("//variables/variable/@" + name, nullptr));
}

xmlNode* ElementOf(analytics::DocumentNode& attribute) {
  return static_cast<xmlNode*>(attribute.Handle())->parent;
}

Values ValuesOf(analytics::Document& document) {
  Values values;
  for (const NodePtr& value : Attributes(document, "value")) {
    values[ElementOf(*value)] = value->GetValue();
  }
  return values;
}

/// All variables that have a name, in document order.
std::vector<Definition> Definitions(const SettingsFile& file) {
  if (!file.input) return {};
  analytics::Document document;
  document.ParseString(file.input->text);
  NumberLines(document, XmlInput(*file.input).Document());
  const Values values = ValuesOf(document);
  std::vector<Definition> definitions;
  for (const NodePtr& name : Attributes(document, "name")) {
    const auto value = values.find(ElementOf(*name));
    const bool hasValue = value != values.end();
    definitions.push_back({name->GetValue(), hasValue ? value->second : std::string(), hasValue,
                           LineOf(ElementOf(*name))});
  }
  return definitions;
}

VariableTable TableOf(const std::vector<Definition>& definitions) {
  VariableTable table;
  for (const Definition& definition : definitions) {
    if (definition.hasValue) table.Add(definition.name, definition.value);
  }
  return table;
}

/// Leaves one definition of each name, at the place of its first.
std::vector<Definition> OneOfEachName(const std::vector<Definition>& definitions) {
  std::vector<Definition> kept;
  std::unordered_map<std::string, std::size_t> places;
  for (const Definition& definition : definitions) {
    if (definition.name.empty()) continue;
    const auto place = places.insert({definition.name, kept.size()});
    if (place.second) {
      kept.push_back(definition);
    } else if (definition.hasValue && !kept[place.first->second].hasValue) {
      kept[place.first->second] = definition;
    }
  }
  return kept;
}

/// Expands all variables of a table.
class Expander {
 public:
  explicit Expander(const VariableTable& variables)
      : m_expansions(variables), m_substitution(variables) {}

  Variable Expanded(const Definition& definition) {
    const VariableExpansion& expanded = m_expansions.Of(definition.name);
    Variable variable{
        definition.name, definition.value, {}, Problem(definition.name, expanded), definition.line};
    if (!variable.problem.empty()) return variable;
    variable.expanded = m_substitution.Of("${" + definition.name + "}", expanded.expansion);
    return variable;
  }

 private:
  std::string Problem(const std::string& name, const VariableExpansion& expanded) {
    if (!expanded.expansion.cycle.empty()) {
      return "never ends: " + CycleText(expanded.expansion.cycle, name);
    }
    if (!expanded.brokenBy.empty()) return Problem(name, m_expansions.Of(expanded.brokenBy));
    if (expanded.expansion.isTooLong) return kGrowth;
    if (expanded.IsWhole()) return {};
    return "has " + std::to_string(expanded.expansion.length) + " bytes, too many to be shown here";
  }

  VariableExpansions m_expansions;
  Substitution m_substitution;
};

}  // namespace

std::string Substitution::Of(const std::string& text, const Expansion& expansion) {
  const std::size_t visits =
      expansion.references * (m_variables.Size() + expansion.length / kLettersOfAVisit);
  if (visits > m_visitsLeft) return expansion.text;
  m_visitsLeft -= visits;
  return analytics::Settings::SubstituteVariables(text);
}

std::vector<Variable> Variables(const SettingsFile& file) {
  const std::vector<Definition> definitions = Definitions(file);
  const VariableTable table = TableOf(definitions);
  Expander expander(table);
  return Transformed(OneOfEachName(definitions), [&expander](const Definition& definition) {
    return expander.Expanded(definition);
  });
}

VariableTable TableOf(const SettingsFile& file) { return TableOf(Definitions(file)); }

}  // namespace settingsctl
