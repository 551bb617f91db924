#pragma once

#include <stdexcept>
#include <string>

#include <sys/types.h>

#include "files/FileDescriptor.h"

namespace files {

/// A file that nobody but its owner and root could replace without taking it away from its owner
/// or group.
class OwnershipError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Gives a new file the owner and the group of the file at `path`.
///
/// Errors: an `OwnershipError` if the caller may not do so.
void GiveTo(uid_t owner, gid_t group, const FileDescriptor& file, const std::string& path);

/// What is to take the place of a file: a new file beside it, removed at the end of its scope
/// unless it took that place.
///
/// A reader, or a crash at any moment, meets the file as it was before or as it is afterwards. The
/// new one has the owner, the group, the permissions and the access list of the old one, but no
/// set-user-ID or set-group-ID bit and no other extended attributes. A further hard link keeps the
/// old text.
///
/// Errors: a `std::system_error`, with the reason as its code, or an `OwnershipError`. The file
/// then is as it was, and nothing is left beside it.
class Replacement {
 public:
  /// Refuses a file that the caller may not write, and, also for root, one that nobody may.
  ///
  /// @param path  of a plain file, or of none yet; not of a symbolic link, see `LinkTarget`
  explicit Replacement(std::string path);
  ~Replacement();

  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Refuses what the constructor refuses, and makes nothing.
  static void CheckMayReplace(const std::string& path) { RightsOf(path); }

  /// Writes the whole text, and has it on the disk.
  void Write(const std::string& text);

  /// To be called after `Write`.
  void TakePlace();

 private:
  struct Rights {
    bool areThere;  // false where there is no old file
    uid_t owner;
    gid_t group;
    mode_t permissions;
  };

  static Rights RightsOf(const std::string& path);
  FileDescriptor MakeFile();
  void TakeRights() const;
  void TakeAccessList() const;

  const std::string m_path;
  const Rights m_old;
  std::string m_newPath;
  const FileDescriptor m_file;
};

}  // namespace files
