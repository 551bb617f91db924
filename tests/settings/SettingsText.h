#pragma once

#include <string>

#include <analytics/Settings.h>

#include "tests/support/TemporaryDirectory.h"

namespace tests {

/// The last step of a key: "profile" of "tags/profile".
inline std::string TagOf(const std::string& key) { return key.substr(key.rfind('/') + 1); }

inline std::string ElementOf(const std::string& key, const std::string& content);

/// `element` within the elements of all steps of `key` but the last.
inline std::string WithinParentsOf(const std::string& key, const std::string& element) {
  const std::string::size_type slash = key.rfind('/');
  return slash == std::string::npos ? element : ElementOf(key.substr(0, slash), element);
}

/// The elements of all steps of `key`, such as "tags/profile", around `content`.
inline std::string ElementOf(const std::string& key, const std::string& content) {
  const std::string tag = TagOf(key);
  return WithinParentsOf(key, "<" + tag + ">" + content + "</" + tag + ">");
}

/// Loads the settings from a file of this text; gives whether it was parsed.
inline bool LoadText(const std::string& text) {
  const TemporaryDirectory directory;
  return analytics::Settings::LoadSettings(directory.Write("analytics.ini", text));
}

/// Loads the settings from a file with a root element around `content`.
inline bool LoadContent(const std::string& content) {
  return LoadText(ElementOf("settings", content));
}

}  // namespace tests
