#pragma once

#include <string>
#include <vector>

#include <libxml/tree.h>

namespace settingsctl {

/// What the text of a setting must be.
enum class SettingKind {
  kNumber,
  kText,
  kTag,        ///< a name that queries on profiles use
  kPrefix,     ///< the same, for a namespace
  kUri,        ///< a namespace
  kDirectory,  ///< a path that the library ends in a slash
  kPipe        ///< may occur any number of times, or not at all
};

/// A setting of the file.
struct Setting {
  std::string path;  ///< the elements that hold it, such as "tags/rule"; found at any depth
  SettingKind kind;
};

/// All settings that the library reads, in the order in which it reads them.
const std::vector<Setting>& AllSettings();

/// The settings whose own element has a name.
std::vector<const Setting*> SettingsNamed(const std::string& name);

/// The setting that the library reads from an element if it is the first; null if it reads none.
const Setting* SettingOf(const xmlNode* element);

/// The setting of a path, which must be one of `AllSettings()`.
const Setting* SettingOfPath(const std::string& path);

/// The element's own name in the path: "rule" for "tags/rule".
std::string LastName(const Setting& setting);

/// The names of a path, the innermost first: "rule", "tags".
std::vector<std::string> NamesFromInside(const std::string& path);

/// The path as messages show it: "<tags><rule>".
std::string ShownPath(const Setting& setting);

/// All element names that mean something in a settings file: settings, what holds them, variables.
const std::vector<std::string>& KnownNames();
bool IsKnownName(const std::string& name);

/// The names that mean something right below an element.
std::vector<std::string> NamesBelow(const xmlNode* parent);

}  // namespace settingsctl
