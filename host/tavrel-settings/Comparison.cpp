#include "host/tavrel-settings/Comparison.h"

#include <algorithm>
#include <iterator>

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

void CompareKeys(const std::string& group, const IniFile::Keys& before, const IniFile::Keys& after,
                 IniFile& changes) {
  for (const auto& key : before)
    if (after.count(key.first) == 0) changes.RemoveKey(group, key.first);
  for (const auto& key : after) {
    const auto old = before.find(key.first);
    if (old == before.end() || old->second != key.second)
      changes.SetValue(group, key.first, key.second);
  }
}

}  // namespace

bool Matches(const std::string& pattern, const std::string& group) {
  if (pattern.empty() || pattern.back() != '*') return group == pattern;
  return group.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
}

IniFile::Groups Matching(const std::string& pattern, const IniFile::Groups& groups) {
  IniFile::Groups matching;
  std::copy_if(groups.begin(), groups.end(), std::inserter(matching, matching.end()),
               [&](const auto& group) { return Matches(pattern, group.first); });
  return matching;
}

IniFile Changes(const IniFile::Groups& before, const IniFile::Groups& after) {
  IniFile changes;
  for (const auto& group : before)
    if (after.count(group.first) == 0) changes.RemoveGroup(group.first);
  for (const auto& group : after) {
    const auto old = before.find(group.first);
    if (old == before.end()) changes.AddGroup(group.first);
    CompareKeys(group.first, old == before.end() ? IniFile::Keys() : old->second, group.second,
                changes);
  }
  return changes;
}

bool IsEmpty(const IniFile& changes) {
  return changes.AllGroups().empty() && changes.RemovedGroups().empty() &&
         changes.RemovedKeys().empty();
}

}  // namespace settings
}  // namespace tavrel
