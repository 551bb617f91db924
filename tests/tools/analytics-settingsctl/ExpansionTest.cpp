#include "input/Expansion.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <analytics/Settings.h>

#include "input/MemoryFile.h"
#include "input/VariableExpansions.h"
#include "input/VariableTable.h"

namespace {

using settingsctl::Expansion;
using settingsctl::TryExpansion;
using settingsctl::VariableExpansion;
using settingsctl::VariableExpansions;
using settingsctl::VariableTable;

const std::vector<std::string> kNames = {"a", "b", "c", "d", "e"};

/// Pieces of which values are made by chance: all that references consist of, whole and in parts.
const std::vector<std::string> kPieces = {"${a}", "${b}", "${c}", "${d}", "${e}", "${", "}",  "$",
                                          "{",    "{a}",  "{b}",  "a",    "x",    "",   "${}"};

/// Five variables that refer to each other in some way.
class SomeVariables {
 public:
  explicit SomeVariables(unsigned seed) : m_random(seed) {
    for (const std::string& name : kNames) {
      values.push_back(Value());
      table.Add(name, values.back());
    }
  }

  /// Has the library take the variables from a settings file.
  void Load() const {
    std::string rows;
    for (std::size_t index = 0; index < kNames.size(); ++index) {
      rows += "<variable name='" + kNames[index] + "' value='" + values[index] + "'/>";
    }
    const settingsctl::MemoryFile file("<s><variables>" + rows + "</variables></s>");
    analytics::Settings::LoadSettings(file.Path());
  }

  std::vector<std::string> values;
  VariableTable table;

 private:
  std::string Value() {
    std::string value;
    const std::size_t count = m_random() % 5;
    for (std::size_t piece = 0; piece < count; ++piece) {
      value += kPieces[m_random() % kPieces.size()];
    }
    return value;
  }

  std::mt19937 m_random;  // the same numbers everywhere
};

bool Ends(const Expansion& expansion) { return expansion.cycle.empty() && !expansion.isTooLong; }

std::string Shown(const SomeVariables& some) {
  std::string shown;
  for (const std::string& value : some.values) shown += "\"" + value + "\" ";
  return shown;
}

TEST(AnExpansion, IsWhatTheLibrarySubstitutesWhereThatEnds) {
  std::size_t compared = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    const SomeVariables some(seed);
    some.Load();
    for (const char* const text : {"${a}", "x${b}$${c}{d}", "$${e}${d}}"}) {
      const Expansion expansion = TryExpansion(text, some.table);
      if (!Ends(expansion)) continue;
      EXPECT_EQ(analytics::Settings::SubstituteVariables(text), expansion.text) << Shown(some);
      ++compared;
    }
  }
  EXPECT_GT(compared, 200U);
}

/// Whether the library's way comes to an end: it replaces the first reference again and again.
bool EndsSoon(std::string text, const VariableTable& table) {
  for (int step = 0; step < 200; ++step) {
    const std::size_t start = text.find("${");
    const std::size_t end = start == std::string::npos ? start : text.find('}', start);
    if (end == std::string::npos || end == start + 2) return true;
    const std::string* const value = table.Find(text.substr(start + 2, end - start - 2));
    text.replace(start, end - start + 1, value ? *value : std::string());
  }
  return false;
}

TEST(AnExpansion, HasACycleOnlyWhereTheLibrarysWayHasNoEnd) {
  std::size_t cycles = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const SomeVariables some(seed);
    for (const char* const text : {"${a}", "x${b}$${c}{d}"}) {
      if (TryExpansion(text, some.table).cycle.empty()) continue;
      EXPECT_FALSE(EndsSoon(text, some.table)) << text << " with " << Shown(some);
      ++cycles;
    }
  }
  EXPECT_GT(cycles, 200U);
}

TEST(TheExpansionOfAVariable, IsThatOfAReferenceToItAlone) {
  std::size_t compared = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const SomeVariables some(seed);
    VariableExpansions expansions(some.table);
    for (const std::string& name : kNames) {
      const Expansion alone = TryExpansion("${" + name + "}", some.table);
      const VariableExpansion& expanded = expansions.Of(name);
      if (!Ends(alone) || expanded.IsBrokenItself() || !expanded.brokenBy.empty()) continue;
      EXPECT_EQ(alone.text, expanded.expansion.text) << Shown(some);
      EXPECT_EQ(alone.references, expanded.expansion.references) << Shown(some);
      ++compared;
    }
  }
  EXPECT_GT(compared, 2000U);
}

TEST(TheExpansionOfAVariable, IsBrokenWhereAReferenceToItAloneHasNoEnd) {
  std::size_t broken = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const SomeVariables some(seed);
    VariableExpansions expansions(some.table);
    for (const std::string& name : kNames) {
      const bool ends = Ends(TryExpansion("${" + name + "}", some.table));
      const VariableExpansion& expanded = expansions.Of(name);
      const bool isBroken = expanded.IsBrokenItself() || !expanded.brokenBy.empty();
      EXPECT_EQ(!ends, isBroken) << name << " of " << Shown(some);
      broken += isBroken ? 1U : 0U;
    }
  }
  EXPECT_GT(broken, 200U);
}

TEST(TheExpansionOfAVariable, IsAsLongWithoutRoomForItsText) {
  std::size_t shortened = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const SomeVariables some(seed);
    VariableExpansions expansions(some.table, 0);
    for (const std::string& name : kNames) {
      const Expansion alone = TryExpansion("${" + name + "}", some.table);
      const VariableExpansion& expanded = expansions.Of(name);
      if (expanded.IsBrokenItself() || !expanded.brokenBy.empty()) continue;
      EXPECT_EQ(alone.text.size(), expanded.expansion.length) << name << " of " << Shown(some);
      EXPECT_EQ(alone.references, expanded.expansion.references) << name << " of " << Shown(some);
      shortened += expanded.IsWhole() ? 0U : 1U;
    }
  }
  EXPECT_GT(shortened, 50U);
}

TEST(ACycle, IsToldFromOneOfItsNames) {
  EXPECT_EQ("c -> a -> b -> c", settingsctl::CycleText({"a", "b", "c", "a"}, "c"));
}

TEST(ACycle, IsToldAsItWasFoundFromANameOutsideIt) {
  EXPECT_EQ("a -> b -> a", settingsctl::CycleText({"a", "b", "a"}, "x"));
}

TEST(ACycle, IsShownWholeUpToNineNames) {
  EXPECT_EQ("1 -> 2 -> 3 -> 4 -> 5 -> 6 -> 7 -> 8 -> 1",
            settingsctl::CycleText({"1", "2", "3", "4", "5", "6", "7", "8", "1"}));
}

TEST(ACycle, IsShownWithoutItsMiddleIfItIsLong) {
  EXPECT_EQ("1 -> 2 -> 3 -> 4 -> 5 -> 6 -> (2 more) -> 9 -> 1",
            settingsctl::CycleText({"1", "2", "3", "4", "5", "6", "7", "8", "9", "1"}));
}

}  // namespace
