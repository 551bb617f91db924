#include "host/tavrel-settings/Settling.h"

#include <algorithm>

namespace tavrel {
namespace settings {

constexpr std::chrono::milliseconds Settling::kQuiet;
constexpr std::chrono::milliseconds Settling::kAbsence;
constexpr std::chrono::seconds Settling::kLongest;
constexpr std::chrono::seconds Settling::kRetry;

void Settling::Note(FileChange change, bool isThere, Time now) {
  if (!m_isPending) m_first = now;
  m_isPending = true;
  m_isThere = isThere;
  m_last = now;
  m_wait = change == FileChange::kReplaced ? Clock::duration() : kQuiet;
}

void Settling::Ask(bool isThere, Time now) {
  if (!m_isPending) Note(FileChange::kOther, isThere, now);
}

void Settling::Fail(Time now) {
  m_isPending = true;
  m_first = m_last = now;
  m_wait = kRetry;
}

Settling::Time Settling::Due() const {
  if (!m_isThere) return m_last + std::max<Clock::duration>(m_wait, kAbsence);
  return std::min<Time>(m_last + m_wait, m_first + kLongest);
}

bool Settling::MayRead(FileChange change, bool isThere, Time now) {
  const bool mayRead = change == FileChange::kNone || IsOverdue(isThere, now);
  if (mayRead)
    m_isPending = false;
  else
    Note(change, isThere, now);
  return mayRead;
}

bool Settling::HasRead(FileChange change, bool isThere, Time now) {
  if (change == FileChange::kNone) return true;
  const bool counts = change == FileChange::kReplaced || IsOverdue(isThere, now);
  m_isPending = !counts;  // what does not count goes on with the changes from before the read
  Note(change, isThere, now);
  return counts;
}

}  // namespace settings
}  // namespace tavrel
