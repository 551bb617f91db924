#include <string>

#include <gtest/gtest.h>

#include "document/TypedText.h"

namespace analytics {
namespace {

// Integers of the classic locale are read without a stream, with exactly a stream's answers.

void ExpectAsAStreamReads(const std::string& text) {
  ASSERT_EQ(TextStream(text).Read(7), IntegerOfClassicLocale(text, 7))
      << testing::PrintToString(text);
}

/// Calls `visit` with all texts of up to `length` characters of `alphabet` that begin with `text`.
template <typename Visit>
void ForEachText(const std::string& alphabet, std::size_t length, const Visit& visit,
                 const std::string& text = std::string()) {
  visit(text);
  if (length == 0) return;
  for (const char character : alphabet) ForEachText(alphabet, length - 1, visit, text + character);
}

TEST(AClassicInteger, IsWhatAStreamReadsInAnyShortText) {
  ForEachText(std::string(" \t\v0159+-.xae\0", 14), 4, ExpectAsAStreamReads);
}

TEST(AClassicInteger, IsWhatAStreamReadsWithAnyCharacterAnywhere) {
  for (int code = 0; code < 256; ++code) {
    const std::string character(1, static_cast<char>(code));
    for (const std::string& text : {character, character + "12", "1" + character + "2"})
      ExpectAsAStreamReads(text);
  }
}

class AClassicIntegerNear : public testing::TestWithParam<std::string> {};

/// With any two digits at its end.
TEST_P(AClassicIntegerNear, ALimitIsWhatAStreamReads) {
  const std::string begin = GetParam().substr(0, GetParam().size() - 2);
  for (int end = 100; end < 200; ++end) {
    const std::string number = begin + std::to_string(end).substr(1);
    for (const char* const sign : {"", "-", "+", "-000", " "}) ExpectAsAStreamReads(sign + number);
    ExpectAsAStreamReads(number + "0");
  }
}

INSTANTIATE_TEST_SUITE_P(Limits, AClassicIntegerNear,
                         testing::Values("2147483647", "2147483648", "4294967294", "4294967295",
                                         "21474836470", "9223372036854775807",
                                         "18446744073709551615", "123456789012345678901234567850",
                                         "000000000000000000002147483647"));

}  // namespace
}  // namespace analytics
