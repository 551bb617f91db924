// Expands texts with variables that the input defines and compares the result with a model.

#include <string>
#include <vector>

#include <analytics/Settings.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/MadeXml.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/SubstitutionModel.h"
#include "fuzz/Target.h"

namespace fuzz {
namespace {

using analytics::Settings;

const char* const kNames[] = {"a", "b", "c", "dir", "a b", "A", "a${b", "$", "{", "'", "a]", "."};
const char* const kPieces[] = {"${a}", "${b}", "${c}",   "${dir}", "${missing}", "${}",
                               "${",   "}",    "$",      "{",      "/",          "x",
                               "a",    "b",    "${a b}", "'"};

/// A text of pieces that references are made of, or of the input's own bytes.
std::string TextOf(Input& input) {
  std::string text;
  for (std::size_t pieces = input.Below(6); pieces > 0; --pieces)
    text += input.Seldom(8) ? input.Text(8) : input.Of(kPieces);
  return text;
}

/// Bytes that a settings file can hold and an attribute gives back as they are.
std::string Plain(const std::string& text) {
  std::string plain;
  for (const char byte : text) {
    if (byte >= ' ' && byte < 0x7F) plain += byte;
  }
  return plain;
}

std::vector<Variable> VariablesOf(Input& input) {
  std::vector<Variable> variables;
  for (std::size_t count = input.Below(6); count > 0; --count) {
    const std::string name = input.Seldom(8) ? Plain(input.Text(4)) : input.Of(kNames);
    const bool hasValue = !input.Seldom(8);
    variables.push_back({name, hasValue ? Plain(TextOf(input)) : std::string(), hasValue});
  }
  return variables;
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + Escaped(value) + "\"";
}

/// A settings file; some variables lie deeper, where they count all the same.
std::string FileOf(const std::vector<Variable>& variables) {
  std::string text = R"(<s><variable name="a" value="beside"/><variables>)";
  for (std::size_t index = 0; index < variables.size(); ++index) {
    const Variable& variable = variables[index];
    if (index == 3) text += "</variables><deep><variables>";
    text += "<variable" + Attribute("name", variable.name) +
            (variable.hasValue ? Attribute("value", variable.value) : "") + "/>";
  }
  return text + (variables.size() > 3 ? "</variables></deep></s>" : "</variables></s>");
}

const MemoryFile& File() {
  static const MemoryFile file;
  return file;
}

/// Loads a file, unless it is the one that is loaded: that costs most of the time.
void Load(const std::string& text) {
  static std::string loaded;
  if (text == loaded) return;
  File().Write(text);
  Require(Call([] { return Settings::LoadSettings(File().Path()); }), "the settings are loaded");
  loaded = text;
}

}  // namespace

void SetUp() { setenv("ANALYTICS_INI", File().Path().c_str(), 1); }

void RunOne(Input& input) {
  const std::vector<Variable> variables = VariablesOf(input);
  const std::string file = FileOf(variables);
  for (int texts = 0; texts < 3; ++texts) {
    const std::string text = TextOf(input);
    // A name with a double quote is no XPath any more, or another one.
    if (text.find('"') != std::string::npos || file.find("&#34;") != std::string::npos) return;
    std::string expected;
    if (!Substituted(text, variables, expected)) return;
    Load(file);
    RequireSame(Call([&] { return Settings::SubstituteVariables(text); }), expected,
                "a text with variables");
  }
}

}  // namespace fuzz
