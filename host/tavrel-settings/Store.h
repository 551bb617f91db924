#pragma once

#include <functional>
#include <string>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

class WriteLock;

/// The file that holds the settings; no other class touches it.
///
/// A reader, or a crash at any moment, meets the file as it was before a write or after it. A file
/// that does not exist is a store without settings.
///
/// Errors: a store that cannot be read or written gives a `std::runtime_error` that names the file
/// and the reason, a malformed line one that starts with "FILE:LINE: ".
///
/// Threads: any; writes of all threads and processes are made one after the other.
class Store {
 public:
  /// The store that the environment names; see `TavrelSettingsClient`.
  Store();

  /// The store that an absolute path leads to now.
  explicit Store(const std::string& name);

  /// Path of the file. Where a link was named this is what it leads to, so that writing keeps it.
  const std::string& Path() const { return m_path; }

  /// The last part of the path.
  std::string FileName() const;

  /// Directory of the file; it and its parents are created unless they are there.
  std::string CreatedDirectory() const;

  /// All settings.
  core::IniFile Read() const;

  /// Has `use` look at all settings. A `BadSetting` that it throws is reported as a malformed line.
  void Inspect(const std::function<void(const core::IniFile&)>& use) const;

  /// Has `edit` change the settings, and writes what it changed; if that is nothing the file is not
  /// touched. No edit of another store falls between reading and writing. A file that an editor
  /// changes meanwhile is read again, and `edit` then called again, with what it holds now. If
  /// `edit` throws, nothing is written; a `BadSetting` is reported as by `Inspect`. It must not
  /// edit the store again, which would wait for itself.
  ///
  /// A group, key or value that would not come back from the file as it is, such as one with a line
  /// break, is refused with `std::invalid_argument` before anything is written.
  ///
  /// Errors: also a file that the caller may not write, or that nobody may, even if nothing would
  /// change, a file that would change its owner or group, one that others keep changing for five
  /// seconds, and a lock that another program holds that long. The file then is as it was.
  void Edit(const std::function<void(core::IniFile&)>& edit) const;

 private:
  std::string Directory() const;
  std::string Text() const;
  bool TryEdit(const std::function<void(core::IniFile&)>& edit) const;
  bool TryReplace(const std::string& before, const std::string& after, const WriteLock& lock) const;

  std::string m_path;
};

}  // namespace settings
}  // namespace tavrel
