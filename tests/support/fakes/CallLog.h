#pragma once

#include <string>
#include <vector>

namespace fakes {

/// What the library asked of the platform, one entry a call, in order.
class CallLog {
 public:
  /// The log of this process.
  static CallLog& Instance();

  /// Notes a call, such as "Calibration::SetPhysicalHeight(7)".
  void Note(const std::string& call);

  void Clear();

  std::vector<std::string> Calls() const;

 private:
  std::vector<std::string> m_calls;
};

}  // namespace fakes
