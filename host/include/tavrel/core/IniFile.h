// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

namespace tavrel {
namespace core {

/// A container of settings: groups of keys, each key with a text.
///
/// It can also say what is no longer there. A change that the platform reports is such a container:
/// it holds what is new and marks what was removed, so that merging it gives the settings as they
/// now are. A removed group or key reads as missing.
///
/// Threads: one object is used by one thread at a time.
class IniFile {
 public:
  IniFile();
  IniFile(const IniFile& other);
  IniFile& operator=(const IniFile& other);
  ~IniFile();

  bool HasGroup(const std::string& group) const;

  /// Text of a key.
  ///
  /// @param out  set only if the key exists
  /// @return whether the key exists
  bool TryGetValue(std::string& out, const std::string& group, const std::string& key) const;

  /// A key as a truth value: "true", "yes", "on" and "1" are true, "false", "no", "off" and "0" are
  /// false, in any case of letters.
  ///
  /// @param defaultValue  the answer if the key is missing or its text is none of these
  bool GetBoolOrDefault(const std::string& group, const std::string& key, bool defaultValue) const;

  /// A key as an integer in decimal.
  ///
  /// @param defaultValue  the answer if the key is missing, or its text is no integer as a whole or
  ///                      is out of the range of `int`
  int GetIntOrDefault(const std::string& group, const std::string& key, int defaultValue) const;

  /// Removes what `other` marks as removed, then copies its groups and keys, replacing values that
  /// are already there.
  void MergeSettings(const IniFile& other);

  using Keys = std::map<std::string, std::string>;
  using Groups = std::map<std::string, Keys>;

  /// All groups with their keys, in the order of their names.
  const Groups& AllGroups() const;

  /// Adds a group without keys, unless it is there.
  void AddGroup(const std::string& group);

  /// Sets a key, adding its group where it is missing.
  void SetValue(const std::string& group, const std::string& key, const std::string& value);

  /// Takes a group out and marks it as removed.
  void RemoveGroup(const std::string& group);

  /// Takes a key out and marks it as removed.
  void RemoveKey(const std::string& group, const std::string& key);

  /// Groups marked as removed.
  const std::set<std::string>& RemovedGroups() const;

  /// Keys marked as removed, as group and key.
  const std::set<std::pair<std::string, std::string>>& RemovedKeys() const;

 private:
  Groups m_groups;
  std::set<std::string> m_removedGroups;
  std::set<std::pair<std::string, std::string>> m_removedKeys;
};

}  // namespace core
}  // namespace tavrel
