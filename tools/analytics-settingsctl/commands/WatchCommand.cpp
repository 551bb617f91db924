#include <algorithm>
#include <csignal>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

#include <analytics/WindowBlankingChanges.h>
#include <unistd.h>

#include "Commands.h"
#include "output/Colours.h"
#include "output/Json.h"
#include "programs/EndSignals.h"

namespace settingsctl {
namespace {

using analytics::WindowBlankingChanges;

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl watch
  analytics-settingsctl watch --json | jq --unbuffered .count

Each record of the privacy masks is printed as the runtime's subscribers get it: the
colour of every active mask as Y, U and V. The first is what is set now. Ctrl-C ends
with exit status 0.
)";

struct Arguments {
  bool asJson = false;
};

/// An 8-bit part of a colour as it is shown: BT.601 limited range back to full, scaled by 256.
std::string Part(int scaled) { return std::to_string(std::clamp((scaled + 128) / 256, 0, 255)); }

std::string Swatch(const tagWindowBlankingRegion& region) {
  const int luma = 298 * (region.y - 16);
  const int cb = region.u - 128;
  const int cr = region.v - 128;
  return "\033[48;2;" + Part(luma + 409 * cr) + ";" + Part(luma - 100 * cb - 208 * cr) + ";" +
         Part(luma + 516 * cb) + "m    \033[0m  ";
}

void PrintText(const tagWindowBlankingRegions& record) {
  const bool hasColours = HasColours();
  std::cout << "Privacy masks: " << record.count << "\n";
  std::for_each(record.regions, record.regions + record.count,
                [hasColours](const tagWindowBlankingRegion& region) {
                  std::cout << "  " << (hasColours ? Swatch(region) : "") << "Y " << region.y
                            << "  U " << region.u << "  V " << region.v << "\n";
                });
  std::cout.flush();
}

void PrintLine(const tagWindowBlankingRegions& record) {
  Json masks = Json::array();
  std::transform(record.regions, record.regions + record.count, std::back_inserter(masks),
                 [](const tagWindowBlankingRegion& region) {
                   return Json{{"y", region.y}, {"u", region.u}, {"v", region.v}};
                 });
  PrintJsonLine({{"count", record.count}, {"masks", masks}});
}

/// Called on the platform's thread with the library's lock held, so it prints and returns.
int Print(void* context, int /*kind*/, void* data, int /*size*/) {
  const auto& record = *static_cast<const tagWindowBlankingRegions*>(data);
  static_cast<const Arguments*>(context)->asJson ? PrintLine(record) : PrintText(record);
  // There is nobody left to watch for once the output is gone.
  if (!std::cout) kill(getpid(), SIGTERM);
  return 0;
}

void Watch(Arguments& arguments) {
  const programs::EndSignals endSignals;
  WindowBlankingChanges* const changes = WindowBlankingChanges::Instance();
  changes->Start();
  if (!arguments.asJson) std::cout << "Watching the privacy masks until Ctrl-C" << std::endl;
  changes->Subscribe(Print, &arguments);
  endSignals.Await();
  changes->Stop();
  changes->Unsubscribe(Print, &arguments);
}

}  // namespace

void AddWatchCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command =
      program.AddCommand("watch", "Print the privacy masks and each change of them");
  command.Add("--json", arguments->asJson, "A line of JSON for each record");
  command.Footer(kExamples);
  command.Callback([arguments] { Watch(*arguments); });
}

}  // namespace settingsctl
