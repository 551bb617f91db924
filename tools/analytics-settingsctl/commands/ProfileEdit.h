#pragma once

#include <string>

#include <analytics/ProfileDoc.h>

#include "CommandLine.h"
#include "input/Input.h"

namespace settingsctl {

/// What the commands that edit a profile have in common.
struct EditArguments {
  std::string file;
  std::string output;  ///< empty: the file itself, or standard output if that was standard input
  std::string settings;
  bool isDryRun = false;
};

void AddEditOptions(const Command& command, EditArguments& arguments);

/// A profile that is being edited.
class ProfileEdit {
 public:
  /// Reads and parses the file; throws `Failure` if it cannot be used.
  explicit ProfileEdit(const EditArguments& arguments);

  analytics::ProfileDoc& Profile() { return m_profile; }

  /// As messages call the file.
  const std::string& Name() const { return m_input.name; }

  /// Writes the edited profile and says what changed, or shows the difference in a dry run.
  ///
  /// @param message  what changed, a sentence without the file's name
  void Finish(const std::string& message);

  /// Throws `Failure` for a type that no query can ask for.
  void RequireType(const std::string& type) const;

 private:
  std::string SavedText();

  const EditArguments& m_arguments;
  const Input m_input;
  analytics::ProfileDoc m_profile;
};

}  // namespace settingsctl
