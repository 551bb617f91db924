#include "host/tavrel-settings/Store.h"

#include <cstddef>
#include <cstdio>
#include <stdexcept>

#include <fcntl.h>
#include <glib.h>
#include <glib/gstdio.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "host/tavrel-settings/Comparison.h"
#include "host/tavrel-settings/FileDescriptor.h"
#include "host/tavrel-settings/GlibPtr.h"
#include "host/tavrel-settings/RegularFile.h"
#include "host/tavrel-settings/StorePath.h"
#include "host/tavrel-settings/StoreReading.h"
#include "host/tavrel-settings/StoreText.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;

/// Gives a file the permissions of the one at `path`, if there is one.
void CopyMode(const std::string& path, const FileDescriptor& to) {
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0)
    Checked(fchmod(to.Get(), status.st_mode & 07777), "cannot set the permissions for", path);
}

/// Removes what a crash left, unless there is nothing. To be written it might need rights that its
/// owner lacks: it has the permissions of the store.
void RemoveRest(const std::string& path) {
  if (unlink(path.c_str()) != 0 && errno != ENOENT) ThrowErrno("cannot remove", path);
}

void WriteAll(const FileDescriptor& file, const std::string& text, const std::string& path) {
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t count = write(file.Get(), text.data() + written, text.size() - written);
    if (count >= 0) written += static_cast<std::size_t>(count);
    if (count < 0 && errno != EINTR) ThrowErrno("cannot write", path);
  }
}

void Sync(const FileDescriptor& file, const std::string& path) {
  Checked(fsync(file.Get()), "cannot write", path);
}

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

}  // namespace

/// Holds the lock between writers, for a scope.
///
/// The lock is a file beside the store, for the store itself is replaced; it stays, so that all
/// writers meet at the same one.
class WriteLock {
 public:
  explicit WriteLock(const std::string& path)
      : m_file(open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666), "cannot open", path) {
    while (flock(m_file.Get(), LOCK_EX) != 0)
      if (errno != EINTR) ThrowErrno("cannot lock", path);
  }

 private:
  const FileDescriptor m_file;
};

Store::Store() : Store(NamedStore()) {}

Store::Store(const std::string& name) : m_path(FollowedPath(name)) {}

std::string Store::FileName() const {
  return GlibPtr<char>(g_path_get_basename(m_path.c_str())).get();
}

std::string Store::CreatedDirectory() const {
  std::string directory = Directory();
  Checked(g_mkdir_with_parents(directory.c_str(), 0777), "cannot create", directory);
  return directory;
}

IniFile Store::Read() const { return ParsedStore(Text(), m_path); }

void Store::Edit(const std::function<void(IniFile&)>& edit) const {
  Read();  // what is wrong with the file is found while nobody has to wait for it
  const WriteLock lock(CreatedDirectory() + "/" + FileName() + ".lock");
  const std::string text = Text();
  const IniFile before = ParsedStore(text, m_path);
  IniFile after = before;
  edit(after);
  const IniFile changes = Changes(before.AllGroups(), after.AllGroups());
  if (IsEmpty(changes)) return;
  CheckHoldable(changes);
  StoreText edited(text);
  edited.Apply(changes);
  Replace(edited.Text(), lock);
}

std::string Store::Directory() const {
  return GlibPtr<char>(g_path_get_dirname(m_path.c_str())).get();
}

std::string Store::Text() const { return TextOfRegularFile(m_path); }

/// Writes a file beside the store, of whoever holds the lock, and has it take the store's place.
void Store::Replace(const std::string& text, const WriteLock& /*held*/) const {
  const std::string path = m_path + ".new";
  RemoveRest(path);
  {
    const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666),
                              "cannot create", path);
    CopyMode(m_path, file);
    WriteAll(file, text, path);
    Sync(file, path);
  }
  Checked(std::rename(path.c_str(), m_path.c_str()), "cannot replace", m_path);
  const FileDescriptor directory(open(Directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC),
                                 "cannot open", Directory());
  Sync(directory, Directory());
}

}  // namespace settings
}  // namespace tavrel
