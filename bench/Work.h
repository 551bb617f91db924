#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/Counting.h"

namespace bench {

/// The sides that a piece of work is compared among.
template <typename... Sides>
struct Among {};

/// Whether a call uses the work up, so that `Renew()` has to come before each.
template <typename Work, typename = void>
inline constexpr bool kIsUsedUp = false;

template <typename Work>
inline constexpr bool kIsUsedUp<Work, std::void_t<decltype(&Work::Renew)>> = true;

/// Calls a piece of work once more and counts what it takes.
template <typename Work>
void Count(benchmark::State& state, Work& work, const std::string& name) {
  if constexpr (kIsUsedUp<Work>) work.Renew();
  const CountedInstructions counted(name);
  const std::size_t before = Allocations();
  auto answer = work();
  benchmark::DoNotOptimize(answer);
  state.counters["allocations"] = static_cast<double>(Allocations() - before);
}

/// Measures a piece of work: an object that is made once from `arguments` and then called. What it
/// holds of the heap, and what a call takes, is told as well.
template <typename Work, typename... Arguments>
void Measure(benchmark::State& state, const std::string& name, const Arguments&... arguments) {
  const double before = HeapInUse();
  Work work(arguments...);
  state.counters["heap"] = HeapInUse() - before;
  for (auto _ : state) {
    if constexpr (kIsUsedUp<Work>) {
      state.PauseTiming();
      work.Renew();
      state.ResumeTiming();
    }
    auto answer = work();
    benchmark::DoNotOptimize(answer);
  }
  Count(state, work, name);
}

/// The comparisons of all pieces of work that are registered. Each throws if the answers of the
/// sides differ.
inline std::vector<std::function<void()>>& Comparisons() {
  static std::vector<std::function<void()>> comparisons;
  return comparisons;
}

/// Throws unless a side's outcome is that by hand, and one that says something: sides that find
/// nothing agree as well.
template <typename Outcome>
void RequireSame(const std::string& name, const Outcome& byHand, const Outcome& outcome) {
  if (outcome == Outcome()) throw std::runtime_error(name + ": finds nothing");
  if (!(outcome == byHand)) throw std::runtime_error(name + ": another answer than by hand");
}

template <typename Work, typename... Arguments>
void AddBenchmark(const std::string& name, const Arguments&... arguments) {
  benchmark::RegisterBenchmark(
      name.c_str(), [=](benchmark::State& state) { Measure<Work>(state, name, arguments...); });
}

/// Registers a piece of work for each side, one right behind the other. It is called with
/// `operator()`; `Outcome()` is what is compared.
///
/// @param name  what the table calls it
/// @param size  shown behind the name where the work is done in several sizes
template <template <typename> class Work, typename ByHand, typename... Others,
          typename... Arguments>
void AddWork(Among<ByHand, Others...> /*sides*/, const std::string& name, const std::string& size,
             const Arguments&... arguments) {
  const auto nameOf = [=](const char* side) { return name + "/" + side + size; };
  AddBenchmark<Work<ByHand>>(nameOf(ByHand::kName), arguments...);
  (AddBenchmark<Work<Others>>(nameOf(Others::kName), arguments...), ...);
  Comparisons().emplace_back([=] {
    const auto byHand = Work<ByHand>(arguments...).Outcome();
    RequireSame(nameOf(ByHand::kName), byHand, byHand);
    (RequireSame(nameOf(Others::kName), byHand, Work<Others>(arguments...).Outcome()), ...);
  });
}

/// Register the work of one subject each.
void AddProfileWork();
void AddItemWork();
void AddGeometryWork();
void AddSettingsWork();
void AddMaskWork();

/// Registers the work of analytics-settingsctl, which nobody would do by hand.
void AddCheckWork();

}  // namespace bench
