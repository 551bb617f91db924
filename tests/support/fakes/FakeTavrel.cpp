#include <set>
#include <string>
#include <string_view>
#include <utility>

#include <tavrel/core/IniFile.h>

#include "tests/support/fakes/CallLog.h"

namespace tavrel {
namespace core {
namespace {

void Note(std::string_view call) { fakes::CallLog::Instance().Note(call); }

std::string KeyText(const std::string& group, const std::string& key) { return group + "," + key; }

/// The text of a key; null if it is missing.
const std::string* Find(const IniFile::Groups& groups, const std::string& group,
                        const std::string& key) {
  const auto keys = groups.find(group);
  if (keys == groups.end()) return nullptr;
  const auto value = keys->second.find(key);
  return value == keys->second.end() ? nullptr : &value->second;
}

}  // namespace

IniFile::IniFile() { Note("IniFile::IniFile()"); }

// Copies are noted before anything is copied, so that one that fails has copied nothing.

IniFile::IniFile(const IniFile& other)
    : m_groups((Note("IniFile::IniFile(other)"), other.m_groups)),
      m_removedGroups(other.m_removedGroups),
      m_removedKeys(other.m_removedKeys) {}

IniFile& IniFile::operator=(const IniFile& other) {
  Note("IniFile::operator=(other)");
  if (this == &other) return *this;
  m_groups = other.m_groups;
  m_removedGroups = other.m_removedGroups;
  m_removedKeys = other.m_removedKeys;
  return *this;
}

IniFile::~IniFile() { Note("IniFile::~IniFile()"); }

bool IniFile::HasGroup(const std::string& group) const {
  Note("IniFile::HasGroup(" + group + ")");
  return m_groups.count(group) != 0;
}

bool IniFile::TryGetValue(std::string& out, const std::string& group,
                          const std::string& key) const {
  Note("IniFile::TryGetValue(" + KeyText(group, key) + ")");
  const std::string* value = Find(m_groups, group, key);
  if (value) out = *value;
  return value != nullptr;
}

bool IniFile::GetBoolOrDefault(const std::string& group, const std::string& key,
                               bool defaultValue) const {
  Note("IniFile::GetBoolOrDefault(" + KeyText(group, key) + "," +
       (defaultValue ? "true" : "false") + ")");
  const std::string* value = Find(m_groups, group, key);
  return value ? *value == "true" : defaultValue;
}

int IniFile::GetIntOrDefault(const std::string& group, const std::string& key,
                             int defaultValue) const {
  Note("IniFile::GetIntOrDefault(" + KeyText(group, key) + "," + std::to_string(defaultValue) +
       ")");
  const std::string* value = Find(m_groups, group, key);
  return value ? std::stoi(*value) : defaultValue;
}

void IniFile::MergeSettings(const IniFile& other) {
  Note("IniFile::MergeSettings(changes)");
  for (const std::string& group : other.m_removedGroups) m_groups.erase(group);
  for (const auto& [group, key] : other.m_removedKeys) {
    const auto keys = m_groups.find(group);
    if (keys != m_groups.end()) keys->second.erase(key);
  }
  for (const auto& [group, keys] : other.m_groups) {
    AddGroup(group);
    for (const auto& [key, value] : keys) SetValue(group, key, value);
  }
}

const IniFile::Groups& IniFile::AllGroups() const { return m_groups; }

void IniFile::AddGroup(const std::string& group) { m_groups[group]; }

void IniFile::SetValue(const std::string& group, const std::string& key, const std::string& value) {
  m_groups[group][key] = value;
}

void IniFile::RemoveGroup(const std::string& group) {
  m_groups.erase(group);
  m_removedGroups.insert(group);
}

void IniFile::RemoveKey(const std::string& group, const std::string& key) {
  const auto keys = m_groups.find(group);
  if (keys != m_groups.end()) keys->second.erase(key);
  m_removedKeys.insert({group, key});
}

const std::set<std::string>& IniFile::RemovedGroups() const { return m_removedGroups; }

const std::set<std::pair<std::string, std::string>>& IniFile::RemovedKeys() const {
  return m_removedKeys;
}

}  // namespace core
}  // namespace tavrel
