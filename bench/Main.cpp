#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "bench/Work.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

void AddAllWork() {
  bench::AddProfileWork();
  bench::AddItemWork();
  bench::AddGeometryWork();
  bench::AddSettingsWork();
  bench::AddMaskWork();
  bench::AddCheckWork();
}

/// Measures, or only compares the answers of the sides.
void Run(bool onlyCompares) {
  const tests::TemporaryDirectory directory;
  bench::SetDirectory(directory.Path());
  const std::string settingsFile = directory.Write("analytics.ini", bench::SettingsText());
  // Quoted, because the library expands the variable as a shell does.
  setenv("ANALYTICS_INI", ("'" + settingsFile + "'").c_str(), 1);
  setenv("ANALYTICS_TRACE", "0", 1);
  AddAllWork();
  if (!onlyCompares) return static_cast<void>(benchmark::RunSpecifiedBenchmarks());
  for (const auto& compare : bench::Comparisons()) compare();
}

}  // namespace

int main(int argc, char** argv) {
  const bool onlyCompares = argc == 2 && argv[1] == std::string("compare");
  if (!onlyCompares) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  }
  try {
    Run(onlyCompares);
  } catch (const std::exception& error) {
    std::cerr << "analytics-bench: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
