#include <string>

#include "tests/settings/SubstitutionVariables.h"
#include "tests/support/Figures.h"
#include "tests/support/XmlErrors.h"

namespace tests {
namespace {

constexpr std::size_t kLongest = 64;

const char* const kSeparators[] = {"$",  "{",  "}",   "${",   "${}",  "\"",
                                   "$$", "}}", "${a", "${a}", "$a{}", "${\"}"};

std::string Repeated(const std::string& text, std::size_t times) {
  std::string repeated;
  while (times-- > 0) repeated += text;
  return repeated;
}

/// Names of 1 to 64 characters, each with a value of another length, some of them empty.
class AReference : public SubstitutionVariables {
 protected:
  void SetUp() override {
    for (std::size_t length = 1; length <= kLongest; ++length) {
      Define(std::string(length, 'n'), std::string(length * 7 % (kLongest + 1), 'v'));
    }
    Define("empty", "");
    LoadDefined();
  }
};

TEST_F(AReference, IsReplacedWithinTextsOfAllLengths) {
  for (std::size_t before = 0; before <= kLongest; ++before) {
    for (std::size_t name = 0; name <= kLongest; ++name) {
      const std::string begin = std::string(before, 'b') + "${" + std::string(name, 'n') + "}";
      for (std::size_t after = 0; after <= kLongest; ++after) {
        CheckText(begin + std::string(after, 'a'));
        Count("substitution_reference_lengths");
      }
    }
  }
}

class ASeparator : public SeparatorVariables {
 protected:
  /// Texts of 0 to 64 letters before and after, with the lengths in the report of the count.
  void CheckWithin(const std::string& separators) {
    for (std::size_t before = 0; before <= kLongest; ++before) {
      for (std::size_t after = 0; after <= kLongest; ++after) {
        CheckText(std::string(before, 'p') + separators + std::string(after, 'a'));
        Count("substitution_separator_lengths");
      }
    }
  }

  const tests::XmlErrors m_quiet;
};

TEST_F(ASeparator, IsTakenAsTheModelTakesItWithinTextsOfAllLengths) {
  for (const char* separator : kSeparators) CheckWithin(separator);
}

TEST_F(ASeparator, IsTakenAsTheModelTakesItNextToAnother) {
  for (const std::string first : kSeparators) {
    for (const char* second : kSeparators) CheckWithin(first + second);
  }
}

TEST_F(ASeparator, IsTakenAsTheModelTakesItAtEachDistanceFromAnother) {
  for (const std::string first : kSeparators) {
    for (const char* second : kSeparators) {
      for (std::size_t between = 0; between <= kLongest; ++between) {
        for (const std::size_t around : {std::size_t{0}, std::size_t{1}, kLongest}) {
          const std::string outside(around, 'a');
          std::string text = outside;
          text.append(first).append(between, 'a').append(second).append(outside);
          CheckText(text);
          Count("substitution_separator_distances");
        }
      }
    }
  }
}

TEST_F(ASeparator, IsTakenAsTheModelTakesItHoweverOftenItIsRepeated) {
  for (const char* first : kSeparators) {
    for (const char* second : kSeparators) {
      for (std::size_t times = 0; times <= kLongest; ++times) {
        CheckText(Repeated(first, times) + Repeated(second, kLongest - times));
        Count("substitution_separator_repetitions");
      }
    }
  }
}

TEST_F(ASeparator, IsTakenAsTheModelTakesItInEveryTextOfEightCharacters) {
  Count("substitution_short_texts", CheckAllTexts(8));
}

}  // namespace
}  // namespace tests
