#pragma once

#include <string>

#include "files/FileDescriptor.h"

namespace tavrel {
namespace settings {

/// Holds the lock between the writers of a store, for a scope.
///
/// The lock is a file beside the store, for the store itself is replaced; it stays, so that all
/// writers meet at the same one. Only those who may write the store can open it: whoever can open
/// it can hold it, and so keep all others from writing.
class WriteLock {
 public:
  /// Waits for the other writers, at most five seconds; then a `std::runtime_error` says so.
  ///
  /// Errors: also an `OwnershipError` where the lock, and so the store, could not be given to the
  /// store's owner.
  ///
  /// @param store  path of the store, whose directory exists
  explicit WriteLock(const std::string& store);
  ~WriteLock();

  WriteLock(const WriteLock&) = delete;
  WriteLock& operator=(const WriteLock&) = delete;

  /// False if somebody has removed the lock, so that others may hold a new one.
  bool IsInForce() const;

 private:
  const std::string m_path;
  const files::FileDescriptor m_file;
};

}  // namespace settings
}  // namespace tavrel
