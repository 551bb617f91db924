#include <string>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "bench/Work.h"
#include "check/FileCheck.h"

namespace bench {
namespace {

/// The tool as a side, which has no other beside it.
struct Tool {
  static constexpr char kName[] = "tool";
};

/// All checks of a profile, its two parses included.
template <typename Side>
class Check {
 public:
  explicit Check(const Profile& sample) : m_text(sample.Text()) {}

  std::size_t operator()() const { return FindingsIn(m_text); }

  /// The profiles are clean, so what is measured is the looking, not the finding.
  bool Outcome() const { return FindingsIn(m_text) == 0 && FindingsIn("<profile/>") > 0; }

 private:
  static std::size_t FindingsIn(const std::string& text) {
    return settingsctl::CheckProfileText("profile.xml", text).size();
  }

  const std::string m_text;
};

}  // namespace

void AddCheckWork() {
  for (const int rules : {100, 1000, 10000}) {
    AddWork<Check>(Among<Tool>(), "check a profile of " + std::to_string(rules) + " rules", "",
                   Profile{rules});
  }
}

}  // namespace bench
