#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

/// The text of a well-formed store, edited line by line.
///
/// An edit touches the lines of the settings that it means and no other: comments, blank lines and
/// the order stay. GLib's own writer would not do: with a group it removes the comment on the next
/// one, and of a key that stands twice it keeps the first when the key is removed.
class StoreText {
 public:
  explicit StoreText(const std::string& text);

  /// Removes what `changes` marks as removed, and sets its groups and keys.
  void Apply(const core::IniFile& changes);

  std::string Text() const;

  /// Number of the line, from 1, that sets a key and counts: the last one.
  std::ptrdiff_t LineOf(const std::string& group, const std::string& key) const;

 private:
  struct Line {
    std::string text;
    std::string group;  // the group that the line is in or starts
    std::string key;    // empty unless the line sets one
    bool isComment;     // or blank
  };
  using Lines = std::vector<Line>;

  static Line Read(const std::string& text, const std::string& group);

  template <typename Condition>
  void Remove(const Condition& isMeant);
  void AddGroup(const std::string& group);
  void SetValue(const std::string& group, const std::string& key, const std::string& value);
  bool ReplaceValue(const std::string& group, const std::string& key, const std::string& value);
  Lines::iterator EndOf(const std::string& group);

  Lines m_lines;
};

}  // namespace settings
}  // namespace tavrel
