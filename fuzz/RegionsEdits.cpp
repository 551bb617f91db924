#include "fuzz/RegionsEdits.h"

#include <cstddef>

namespace fuzz {
namespace {

constexpr std::size_t kMostNumbers = 34;  // beyond the last that counts

const unsigned kCounts[] = {1, 2, 3, 9, 30, 31, 32, 33};

const char* const kKeys[] = {"Name", "ColorR", "ColorG", "ColorB", "ColorA", "Other"};
const char* const kValues[] = {"Door", "Empty", "empty", "",    "0",  "255",         "300",
                               "-1",   "128",   "12abc", "abc", "77", "99999999999", "-257"};

void AddRegions(Edits& edits, Input& input) {
  const unsigned count = input.Of(kCounts);
  if (input.Flag()) edits.Set(kMainGroup, "Enabled", "true");
  const std::string name = input.Of(kValues);
  const std::string part = std::to_string(input.Byte());
  for (unsigned number = 1; number <= count; ++number) {
    edits.Set(RegionGroup(number), "Name", name);
    edits.Set(RegionGroup(number), "ColorG", part);
  }
}

}  // namespace

void Edit(Edits& edits, Input& input) {
  const std::string group = RegionGroup(static_cast<unsigned>(input.Below(kMostNumbers)));
  switch (input.Below(8)) {
    case 0:
      return edits.Add(group);
    case 1:
      return edits.Remove(group);
    case 2:
      return edits.Remove(group, input.Of(kKeys));
    case 3:
      return edits.Set(kMainGroup, "Enabled", input.Seldom(4) ? "false" : "true");
    case 4:
      return input.Flag() ? edits.Remove(kMainGroup) : edits.Remove(kMainGroup, "Enabled");
    case 5:
      return AddRegions(edits, input);
    default: {
      const char* const key = input.Of(kKeys);
      return edits.Set(group, key, input.Of(kValues));
    }
  }
}

}  // namespace fuzz
