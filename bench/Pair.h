#pragma once

#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

namespace bench {

/// Measures a piece of work: an object that is made once from `arguments` and then called.
template <typename Work, typename... Arguments>
void Measure(benchmark::State& state, Arguments... arguments) {
  Work work(arguments...);
  for (auto _ : state) {
    auto answer = work();
    benchmark::DoNotOptimize(answer);
  }
}

/// Throws unless both give the same outcome, and one that says something: two sides that find
/// nothing agree as well.
template <typename Outcome>
void RequireSame(const std::string& work, const Outcome& library, const Outcome& byHand) {
  if (library == Outcome()) throw std::runtime_error(work + ": the library finds nothing");
  if (!(library == byHand)) throw std::runtime_error(work + ": the two sides differ");
}

/// Registers a piece of work as done with the library and, right behind, as done by hand.
///
/// Both sides are called with `operator()`, and their `Outcome()` is compared here, once.
///
/// @param work   what the table calls it
/// @param rules  number of rules of the profile, for work on a profile; shown behind the name
template <typename Library, typename ByHand, typename... Rules>
void AddPair(const std::string& work, Rules... rules) {
  const std::string size = (std::string() + ... + ("/" + std::to_string(rules)));
  RequireSame(work + size, Library(rules...).Outcome(), ByHand(rules...).Outcome());
  benchmark::RegisterBenchmark((work + "/library" + size).c_str(), Measure<Library, Rules...>,
                               rules...);
  benchmark::RegisterBenchmark((work + "/by hand" + size).c_str(), Measure<ByHand, Rules...>,
                               rules...);
}

/// Register the work of one subject each.
void AddProfilePairs();
void AddItemPairs();
void AddGeometryPairs();
void AddSettingsPairs(const std::string& settingsFile);
void AddMaskPairs();

/// Registers the work of analytics-settingsctl, which nobody would do by hand.
void AddCheckWork();

}  // namespace bench
