#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tavrel {
namespace settings {

/// What tells one state of a file from another without reading it.
///
/// The times in it are coarse: two changes within a few milliseconds may leave the same state.
class FileState {
 public:
  explicit FileState(const std::string& path);

  /// Whether there was no such file.
  bool IsMissing() const;

  bool operator!=(const FileState& other) const { return m_figures != other.m_figures; }

 private:
  std::array<std::int64_t, 8> m_figures;
};

}  // namespace settings
}  // namespace tavrel
