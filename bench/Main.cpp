#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/Pair.h"
#include "bench/Samples.h"
#include "tests/support/TemporaryDirectory.h"

namespace {

void AddAllWork(const std::string& settingsFile) {
  bench::AddProfilePairs();
  bench::AddItemPairs();
  bench::AddGeometryPairs();
  bench::AddSettingsPairs(settingsFile);
  bench::AddMaskPairs();
  bench::AddCheckWork();
}

void Run() {
  const tests::TemporaryDirectory directory;
  const std::string settingsFile = directory.Write("analytics.ini", bench::SettingsText());
  // Quoted, because the library expands the variable as a shell does.
  setenv("ANALYTICS_INI", ("'" + settingsFile + "'").c_str(), 1);
  setenv("ANALYTICS_TRACE", "0", 1);
  AddAllWork(settingsFile);
  benchmark::RunSpecifiedBenchmarks();
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return EXIT_FAILURE;
  try {
    Run();
  } catch (const std::exception& error) {
    std::cerr << "analytics-bench: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
