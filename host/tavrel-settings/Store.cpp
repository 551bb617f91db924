#include "host/tavrel-settings/Store.h"

#include <chrono>
#include <cstddef>
#include <stdexcept>

#include <glib.h>
#include <glib/gstdio.h>
#include <sys/stat.h>

#include "files/AbandonedFiles.h"
#include "files/Replacement.h"
#include "host/tavrel-settings/BadSetting.h"
#include "host/tavrel-settings/Comparison.h"
#include "host/tavrel-settings/FileDescriptor.h"
#include "host/tavrel-settings/GlibPtr.h"
#include "host/tavrel-settings/RegularFile.h"
#include "host/tavrel-settings/StorePath.h"
#include "host/tavrel-settings/StoreReading.h"
#include "host/tavrel-settings/StoreText.h"
#include "host/tavrel-settings/WriteLock.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using std::chrono::steady_clock;

constexpr auto kLongestEdit = std::chrono::seconds(5);

void CheckHoldable(const std::string& group, const std::string& key, const std::string& value) {
  if (!IsHoldable(group, key, value))
    throw std::invalid_argument("a file cannot hold the key \"" + key + "\" with the value \"" +
                                value + "\"");
}

void CheckHoldable(const IniFile& changes) {
  for (const auto& group : changes.AllGroups()) {
    if (!IsHoldable(group.first))
      throw std::invalid_argument("a file cannot hold the group \"" + group.first + "\"");
    for (const auto& key : group.second) CheckHoldable(group.first, key.first, key.second);
  }
}

/// Has `work` done with what was read from `text`, and reports a bad setting with its line.
template <typename Work>
void Located(const std::string& text, const std::string& path, const Work& work) {
  try {
    work();
  } catch (const BadSetting& bad) {
    const std::ptrdiff_t line = StoreText(text).LineOf(bad.group, bad.key);
    throw std::runtime_error(path + ":" + std::to_string(line) + ": " + bad.what());
  }
}

/// What a store's name leads to. To what is no regular file it is not followed: links of /proc,
/// such as those of a shell's <(...), lead to pipes, but their texts to nothing.
std::string PathNamed(const std::string& name) {
  struct stat status = {};
  const bool isThere = stat(name.c_str(), &status) == 0;
  return isThere && !S_ISREG(status.st_mode) ? name : FollowedPath(name);
}

}  // namespace

Store::Store() : Store(NamedStore()) {}

Store::Store(const std::string& name) : m_path(PathNamed(name)) {}

std::string Store::FileName() const {
  return GlibPtr<char>(g_path_get_basename(m_path.c_str())).get();
}

std::string Store::CreatedDirectory() const {
  std::string directory = Directory();
  Checked(g_mkdir_with_parents(directory.c_str(), 0777), "cannot create", directory);
  return directory;
}

IniFile Store::Read() const { return ParsedStore(Text(), m_path); }

void Store::Inspect(const std::function<void(const IniFile&)>& use) const {
  const std::string text = Text();
  const IniFile settings = ParsedStore(text, m_path);
  Located(text, m_path, [&] { use(settings); });
}

void Store::Edit(const std::function<void(IniFile&)>& edit) const {
  Read();  // a malformed store is reported without others having to wait for that
  files::Replacement::CheckMayReplace(m_path);  // who may not write makes no lock either
  CreatedDirectory();
  const auto end = steady_clock::now() + kLongestEdit;
  while (!TryEdit(edit))
    if (steady_clock::now() > end)
      throw std::runtime_error("cannot write " + m_path + ": other programs keep changing it");
}

/// @return false if the store was changed meanwhile, so that the edit is to be made again
bool Store::TryEdit(const std::function<void(IniFile&)>& edit) const {
  const WriteLock lock(m_path);
  files::RemoveAbandonedFiles(m_path);
  const std::string text = Text();
  const IniFile before = ParsedStore(text, m_path);
  IniFile after = before;
  Located(text, m_path, [&] { edit(after); });
  const IniFile changes = Changes(before.AllGroups(), after.AllGroups());
  if (IsEmpty(changes)) return true;
  CheckHoldable(changes);
  StoreText edited(text);
  edited.Apply(changes);
  return TryReplace(text, edited.Text(), lock);
}

/// Editors take no lock, and somebody may have removed ours. So it is looked at both as late as can
/// be, once the new text is on the disk.
bool Store::TryReplace(const std::string& before, const std::string& after,
                       const WriteLock& lock) const {
  files::Replacement replacement(m_path);
  replacement.Write(after);
  if (!lock.IsInForce() || Text() != before) return false;
  replacement.TakePlace();
  return true;
}

std::string Store::Directory() const {
  return GlibPtr<char>(g_path_get_dirname(m_path.c_str())).get();
}

std::string Store::Text() const { return TextOfRegularFile(m_path); }

}  // namespace settings
}  // namespace tavrel
