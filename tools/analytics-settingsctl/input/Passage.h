#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "input/Expansion.h"

namespace settingsctl {

/// Passes through a text from its beginning as the substitution does, which searches all of its
/// result again after each replacement: nothing before the first reference ever changes.
class Passage {
 public:
  explicit Passage(const std::string& text) : m_left(text.rbegin(), text.rend()) {}

  /// Goes on to the next reference, for which something is to be put in.
  ///
  /// @return false at the end: no reference follows, a cycle was found or a limit was reached
  bool Next();

  /// The variable that the reference names.
  const std::string& Name() const { return m_name; }

  /// Whether a "$" stands before the reference, which a value that starts with "{" would join.
  bool FollowsDollar() const { return !m_done.empty() && m_done.back() == '$'; }

  /// Puts in the value of the variable, whose own references then follow.
  void PutInValue(const std::string& value);

  /// Puts in what has come of the variable's value, so that it need not be followed once more.
  ///
  /// @param text        the whole result, or one that starts, ends and joins others as it does
  /// @param length      of the whole result
  /// @param references  how many were followed for it
  void PutInResult(const std::string& text, std::size_t length, std::size_t references);

  /// Ends the passage as one that is too long.
  void GiveUp() { m_isTooLong = true; }

  /// What has come of the text; at the end, and once.
  Expansion Result();

 private:
  /// A value that has been put in and is not yet wholly passed.
  ///
  /// As long as what stood before and behind it is untouched, all that happens comes from the value
  /// alone: if the same name is looked up again, all of it will happen again, for ever. Text around
  /// it that is used up on the way comes to an end, and the substitution with it. What follows a
  /// "$" may be joined to it, and so is not the same as what follows none.
  struct OpenValue {
    std::string name;
    std::string key;     // the name, and whether it followed a "$"
    std::size_t before;  // length of the text before it
    std::size_t behind;  // length of the text behind it
  };

  std::string Key() const { return (FollowsDollar() ? "$" : "-") + m_name; }
  bool PassToReference();
  bool TakeName();
  void Append(const std::string& text);
  void ForgetTouchedValues();
  bool FindCycle();

  std::string m_done;
  std::string m_left;  // back to front, so that its beginning can be taken off cheaply
  std::string m_name;
  std::vector<OpenValue> m_open;
  std::unordered_set<std::string> m_openKeys;  // those of m_open, each of which is there once
  std::vector<std::string> m_cycle;
  std::size_t m_hidden = 0;  // length of results that were put in shortened
  std::size_t m_references = 0;
  bool m_isTooLong = false;
};

}  // namespace settingsctl
