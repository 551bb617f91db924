#include "check/Similar.h"

#include <gtest/gtest.h>

using settingsctl::EditDistance;
using settingsctl::SimilarWord;

namespace {

struct Distance {
  const char* name;  // names the row in the report
  const char* left;
  const char* right;
  std::size_t expected;
};

const Distance kDistances[] = {
    {"OfTheSameWord", "rule", "rule", 0},
    {"IgnoresUpperCase", "Rule", "rULE", 0},
    {"OfALetterTooMany", "rules", "rule", 1},
    {"OfALetterTooFew", "rle", "rule", 1},
    {"OfAnotherLetter", "rula", "rule", 1},
    {"OfSwappedNeighbours", "ruel", "rule", 1},
    {"OfSwappedFirstLetters", "urle", "rule", 1},
    {"OfTwoFaults", "maxRessourc", "maxResource", 2},
    {"OfNothing", "", "rule", 4},
    {"ToNothing", "rule", "", 4},
    {"OfNothingAtAll", "", "", 0},
    {"OfOtherWords", "tags", "rule", 4},
};

class AnEditDistance : public testing::TestWithParam<Distance> {};

TEST_P(AnEditDistance, FollowsTheTable) {
  EXPECT_EQ(GetParam().expected, EditDistance(GetParam().left, GetParam().right));
}

TEST_P(AnEditDistance, IsTheSameBothWays) {
  EXPECT_EQ(GetParam().expected, EditDistance(GetParam().right, GetParam().left));
}

INSTANTIATE_TEST_SUITE_P(Rows, AnEditDistance, testing::ValuesIn(kDistances),
                         [](const testing::TestParamInfo<Distance>& row) {
                           return row.param.name;
                         });

TEST(ASimilarWord, IsTheNearestOne) {
  EXPECT_EQ("eventSink", SimilarWord("eventSnik", {"eventSinks", "eventSink", "rule"}));
}

TEST(ASimilarWord, MayBeOneLetterOff) { EXPECT_EQ("rule", SimilarWord("role", {"rule"})); }

TEST(ASimilarWord, IsNotTwoLettersOffIfItIsShort) { EXPECT_EQ("", SimilarWord("rot", {"rule"})); }

TEST(ASimilarWord, MayBeTwoLettersOffIfItIsLong) {
  EXPECT_EQ("quadOutputFile", SimilarWord("quatOutputFil", {"quadOutputFile"}));
}

TEST(ASimilarWord, IsNotThreeLettersOff) {
  EXPECT_EQ("", SimilarWord("quatOutputFi", {"quadOutputFile"}));
}

TEST(ASimilarWord, DiffersFromAKnownOne) { EXPECT_EQ("", SimilarWord("rules", {"rule", "rules"})); }

TEST(ASimilarWord, MayDifferInUpperCaseOnly) { EXPECT_EQ("rule", SimilarWord("RULE", {"rule"})); }

TEST(ASimilarWord, IsNeverEmpty) { EXPECT_EQ("", SimilarWord("a", {"", "rule"})); }

TEST(ASimilarWord, IsSoughtInVain) { EXPECT_EQ("", SimilarWord("anything", {})); }

}  // namespace
