#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/Pair.h"
#include "bench/Samples.h"
#include "check/FileCheck.h"

namespace bench {
namespace {

/// All checks of a profile, its two parses included.
class Check {
 public:
  explicit Check(int rules) : m_text(ProfileText(rules)) {}

  std::size_t operator()() const {
    return settingsctl::CheckProfileText("profile.xml", m_text).size();
  }

 private:
  const std::string m_text;
};

/// The profiles are clean, so what is measured is the looking, not the finding.
void RequireChecks() {
  if (Check(1)() != 0) throw std::runtime_error("check a profile: the sample is not clean");
  if (settingsctl::CheckProfileText("profile.xml", "<profile/>").empty()) {
    throw std::runtime_error("check a profile: nothing is ever found");
  }
}

}  // namespace

void AddCheckWork() {
  RequireChecks();
  for (const int rules : {100, 1000, 10000}) {
    const std::string name = "check a profile/tool/" + std::to_string(rules);
    benchmark::RegisterBenchmark(name.c_str(), Measure<Check, int>, rules)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace bench
