#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "input/Expansion.h"
#include "input/Passage.h"
#include "input/VariableTable.h"

namespace settingsctl {

/// What would come of the reference to one variable.
struct VariableExpansion {
  Expansion expansion;

  /// The variable that is to blame if there is no end for a reason other than this variable's own
  /// value: one that never ends or is too long. In its place the expansion has a dash.
  std::string brokenBy;

  bool IsBrokenItself() const { return !expansion.cycle.empty() || expansion.isTooLong; }

  /// Whether the text is whole, and not shortened for want of room.
  bool IsWhole() const { return expansion.text.size() == expansion.length; }
};

/// Expands the variables of a table, each from what has come of those that it refers to: in time
/// and room in proportion to the table, however the variables refer to each other.
class VariableExpansions {
 public:
  /// @param variables  lives longer than this object
  /// @param room       bytes of results that are put into others; beyond them these are shortened
  explicit VariableExpansions(const VariableTable& variables,
                              std::size_t room = std::size_t{32} << 20U)
      : m_variables(variables), m_textLeft(room) {}

  /// What would come of the reference to a variable of the table.
  const VariableExpansion& Of(const std::string& name);

 private:
  /// A variable being expanded; it waits while another one is, to which it has come.
  struct Frame {
    std::string name;
    Passage passage;
    bool isWaiting;
    std::string brokenBy;
  };

  void Begin(const std::string& name);
  void Step();
  void Finish();
  bool PutIn(Frame& frame);
  void PutInValue(Frame& frame, const std::string* value);
  void PutInResult(Frame& frame, const VariableExpansion& result);
  bool Spend(std::size_t length);

  const VariableTable& m_variables;
  std::vector<Frame> m_frames;
  std::unordered_set<std::string> m_begun;  // the names in m_frames
  std::unordered_map<std::string, VariableExpansion> m_expanded;
  std::size_t m_stepsLeft = 10000000;
  std::size_t m_textLeft;
};

}  // namespace settingsctl
