#include "commands/ProfileEdit.h"

#include <iostream>

#include "Failure.h"
#include "commands/Vocabulary.h"
#include "input/MemoryFile.h"
#include "input/ProfileContents.h"
#include "input/SettingsOption.h"
#include "output/Colours.h"
#include "output/FileWriting.h"
#include "output/LineBreaks.h"
#include "output/LineEdits.h"
#include "output/TextWidth.h"
#include "output/UnifiedDiff.h"

namespace settingsctl {
namespace {

/// The difference, coloured where there are colours. Its headings are lines like others, so the
/// colours go by their first letters.
void PrintDiff(const std::string& diff) {
  for (const std::string& line : SplitLines(diff)) {
    const std::string text = line.substr(0, line.size() - 1);
    if (text.rfind("@@", 0) == 0) {
      std::cout << Styled(Style::kDim, text) << "\n";
    } else if (text.front() == '+') {
      std::cout << Styled(Style::kGood, text) << "\n";
    } else if (text.front() == '-') {
      std::cout << Styled(Style::kBad, text) << "\n";
    } else {
      std::cout << text << "\n";
    }
  }
}

}  // namespace

void AddEditOptions(const Command& command, EditArguments& arguments) {
  command.Add("-o,--output", arguments.output, "Write to OUT and leave FILE as it is")
      .TypeName("OUT");
  command.Add("--dry-run", arguments.isDryRun, "Print the difference and write nothing");
  AddSettingsOption(command, arguments.settings);
}

ProfileEdit::ProfileEdit(const EditArguments& arguments)
    : m_arguments(arguments), m_input(ReadInput(arguments.file)) {
  LoadVocabulary(arguments.settings);
  ParseProfile(m_profile, m_input);
}

void ProfileEdit::RequireType(const std::string& type) const {
  if (type.empty()) throw Failure(m_input.name + ": the type is empty; name the rules' type");
  if (type.find('"') == std::string::npos) return;
  throw Failure(m_input.name + ": the library finds no type with a double quote; edit it by hand",
                1);
}

/// The library's own way of saving, into memory: it does not report a failed write, so the result
/// is looked at here and written by those who do.
std::string ProfileEdit::SavedText() {
  const MemoryFile file;
  m_profile.SaveToFile(file.Path());
  std::string text = file.Text();
  if (analytics::ProfileDoc().ParseString(text)) return WithLineBreaksOf(m_input.text, text);
  throw Failure(m_input.name + ": the edited profile could not be made, and nothing was changed; " +
                "free some memory, or raise the limit on the size of files");
}

void ProfileEdit::Finish(const std::string& message) {
  const std::string text = SavedText();
  const std::string output = m_arguments.output.empty() ? m_input.path : m_arguments.output;
  if (m_arguments.isDryRun)
    return PrintDiff(UnifiedDiff(Printable(m_input.name), m_input.text, Printable(output), text));
  WriteFile(output, text);
  // Standard output holds the profile then.
  std::ostream& report = output == "-" ? std::cerr : std::cout;
  report << Printable(output == "-" ? m_input.name : output) << ": " << Printable(message)
         << (HasOtherLineBreaks(m_input.text, text) ? "; its line breaks became LF" : "") << "\n";
}

}  // namespace settingsctl
