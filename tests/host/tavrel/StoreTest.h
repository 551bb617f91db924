#pragma once

#include <cstdlib>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <tavrel/core/IniFile.h>

#include "host/tavrel-settings/Store.h"
#include "tests/support/TemporaryDirectory.h"

namespace tests {

/// Matches a call that fails with a message which names `path` and holds `reason`.
inline auto FailsOn(const std::string& path, const std::string& reason) {
  using testing::HasSubstr;
  return testing::ThrowsMessage<std::runtime_error>(AllOf(HasSubstr(path), HasSubstr(reason)));
}

/// A store of its own for one test, which clients and child processes find by the environment. It
/// does not exist until it is written.
class StoreTest : public testing::Test {
 protected:
  StoreTest() { setenv("TAVREL_SETTINGS", Path().c_str(), 1); }
  ~StoreTest() override { unsetenv("TAVREL_SETTINGS"); }

  const std::string& Path() const { return m_path; }

  /// Writes the store in place, as an editor may do.
  void Write(const std::string& text) const { m_directory.Write("store.ini", text); }

  /// Replaces the store by another file, as the platform and most editors do.
  void ReplaceBy(const std::string& text) const {
    std::filesystem::rename(m_directory.Write("other.ini", text), Path());
  }

  std::string Text() const { return FileText(Path()); }

  /// What is in the store's directory.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_directory.Path()))
      names.insert(entry.path().filename());
    return names;
  }

  /// What the store holds, however it was written.
  static tavrel::core::IniFile::Groups Groups() {
    return tavrel::settings::Store().Read().AllGroups();
  }

  static void Set(const std::string& group, const std::string& key, const std::string& value) {
    tavrel::settings::Store().Edit(
        [&](tavrel::core::IniFile& settings) { settings.SetValue(group, key, value); });
  }

  const TemporaryDirectory m_directory;

 private:
  const std::string m_path = m_directory.PathOf("store.ini");
};

}  // namespace tests
