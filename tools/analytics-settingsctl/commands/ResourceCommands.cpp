#include <charconv>
#include <climits>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>

#include <analytics/ResourceUsageServer.h>

#include "Commands.h"
#include "Failure.h"
#include "output/Json.h"

namespace settingsctl {
namespace {

constexpr const char* kAvailableExamples = R"(Examples:
  analytics-settingsctl available
  analytics-settingsctl available --json
)";

constexpr const char* kReserveExamples = R"(Examples:
  analytics-settingsctl reserve 30
  analytics-settingsctl reserve 0              gives all units back

N units are claimed for the analytics, in place of what they had before. The
platform does not report whether it accepted a claim; the free units before and
after it are what tells.
)";

struct Arguments {
  std::string count;
  bool asJson = false;
};

void ShowAvailable(const Arguments& arguments) {
  const int units = analytics::ResourceUsageServer().AvailableResources();
  if (arguments.asJson) return PrintJson({{"free", units}});
  std::cout << "Free units: " << units << "\n";
}

/// The library passes any number on, and of one below 0 the platform silently does nothing.
int CountOf(const std::string& text) {
  int count = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, count);
  if (read.ec == std::errc() && read.ptr == end && count >= 0) return count;
  throw Failure("reserve " + text + ": a number of units is 0 to " + std::to_string(INT_MAX) +
                "; reserve 0 gives all units back");
}

void Reserve(const Arguments& arguments) {
  const int count = CountOf(arguments.count);
  analytics::ResourceUsageServer server;
  const int before = server.AvailableResources();
  server.ReserveResources(count);
  const int after = server.AvailableResources();
  if (arguments.asJson) {
    return PrintJson({{"asked", count},
                      {"freeBefore", before},
                      {"freeAfter", after},
                      {"outcomeReported", false}});
  }
  std::cout << "Asked for:         " << count << "\nFree units before: " << before
            << "\nFree units after:  " << after
            << "\nThe platform does not report whether it accepted the claim; compare the free "
               "units.\n";
}

}  // namespace

void AddAvailableCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("available", "Print how many resource units are free");
  command.Add("--json", arguments->asJson, "For other programs");
  command.Footer(kAvailableExamples);
  command.Callback([arguments] { ShowAvailable(*arguments); });
}

void AddReserveCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("reserve", "Claim resource units for the analytics");
  command.Add("N", arguments->count, "Number of units, 0 or more; replaces a former claim")
      .Required();
  command.Add("--json", arguments->asJson, "For other programs");
  command.Footer(kReserveExamples);
  command.Callback([arguments] { Reserve(*arguments); });
}

}  // namespace settingsctl
