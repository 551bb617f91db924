#pragma once

#include <chrono>

namespace tavrel {
namespace settings {

/// How a file has changed since it was last looked at.
enum class FileChange {
  kNone,
  kReplaced,  // by another file that was moved into its place, which is complete
  kOther,     // written in place, perhaps not to its end, removed, created or led to by another way
};

/// Says when a file that changes is read: once it has settled, so that nobody is given half of it.
///
/// A file moved into its place is read at once, any other once it has been left alone for a while.
/// One that never is is read in the end all the same. Since editors move a file away and write it
/// anew, its absence has to last longer.
///
/// It has no clock, but is given the time.
class Settling {
 public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;

  static constexpr std::chrono::milliseconds kQuiet{100};    // without a change
  static constexpr std::chrono::milliseconds kAbsence{300};  // after which a removal counts
  static constexpr std::chrono::seconds kLongest{2};         // from the first change to a read
  static constexpr std::chrono::seconds kRetry{1};           // after a read that failed

  /// The file was looked at and has changed.
  void Note(FileChange change, bool isThere, Time now);

  /// Somebody wants to have the file read, whether or not it has changed.
  void Ask(bool isThere, Time now);

  /// The file could not be read.
  void Fail(Time now);

  /// Whether the file is to be read at some time; otherwise there is nothing to wait for.
  bool IsPending() const { return m_isPending; }

  /// When it is to be looked at and read.
  Time Due() const;

  /// To be asked when a read is due and the file was looked at: whether it is read now.
  bool MayRead(FileChange change, bool isThere, Time now);

  /// To be asked after the read, when the file was looked at again: whether what was read counts.
  bool HasRead(FileChange change, bool isThere, Time now);

 private:
  bool IsOverdue(bool isThere, Time now) const { return isThere && now >= m_first + kLongest; }

  bool m_isPending{false};
  bool m_isThere{true};
  Time m_first;  // of the changes since the last read that counts
  Time m_last;
  Clock::duration m_wait{};  // from the last change on
};

}  // namespace settings
}  // namespace tavrel
