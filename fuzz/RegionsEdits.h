#pragma once

#include <string>

#include <tavrel/core/IniFile.h>

#include "fuzz/Input.h"
#include "fuzz/RegionsModel.h"

namespace fuzz {

/// Settings that change, as the platform stores them, as a change reports them and as a plain map.
struct Edits {
  tavrel::core::IniFile& stored;
  Groups& groups;
  tavrel::core::IniFile changes;
  Groups& known;  // what the library knows, with the changes in it

  void Add(const std::string& group) {
    stored.AddGroup(group);
    groups[group];
    changes.AddGroup(group);
    known[group];
  }
  void Set(const std::string& group, const std::string& key, const std::string& value) {
    stored.SetValue(group, key, value);
    groups[group][key] = value;
    changes.SetValue(group, key, value);
    known[group][key] = value;
  }
  void Remove(const std::string& group) {
    stored.RemoveGroup(group);
    groups.erase(group);
    changes.RemoveGroup(group);
    known.erase(group);
  }
  void Remove(const std::string& group, const std::string& key) {
    stored.RemoveKey(group, key);
    if (groups.count(group) != 0) groups[group].erase(key);
    changes.RemoveKey(group, key);
    if (known.count(group) != 0) known[group].erase(key);
  }
};

/// Changes some settings of regions, as the input says.
void Edit(Edits& edits, Input& input);

}  // namespace fuzz
