#include "output/LineBreaks.h"

#include <string>

#include <gtest/gtest.h>

using settingsctl::HasOtherLineBreaks;
using settingsctl::WithLineBreaksOf;

namespace {

struct Row {
  const char* name;  // names the row in the report
  const char* original;
  const char* written;  // what becomes of "x\ny\n"
  bool isOther;         // whether that is to be told
};

const Row kRows[] = {{"LineFeeds", "a\nb\n", "x\ny\n", false},
                     {"NoLineBreak", "a", "x\ny\n", false},
                     {"AllCrLf", "a\r\nb\r\n", "x\r\ny\r\n", false},
                     {"CrLfButForTheEnd", "a\r\nb", "x\r\ny\r\n", false},
                     {"FirstIsLineFeed", "a\nb\r\n", "x\ny\n", true},
                     {"LastIsLineFeed", "a\r\nb\n", "x\ny\n", true},
                     {"StartsWithLineFeed", "\na\r\n", "x\ny\n", true},
                     {"CarriageReturnsAlone", "a\rb\r", "x\ny\n", true},
                     {"CarriageReturnAmongCrLf", "a\rb\r\n", "x\r\ny\r\n", false},
                     {"LineFeedsThenCr", "a\n\rb", "x\ny\n", true}};

class LineBreaks : public testing::TestWithParam<Row> {};

TEST_P(LineBreaks, AreThoseOfTheOriginalIfItHasCrLfThroughout) {
  EXPECT_EQ(GetParam().written, WithLineBreaksOf(GetParam().original, "x\ny\n"));
}

TEST_P(LineBreaks, AreToldAsOthersIfCarriageReturnsHaveGone) {
  const std::string original = GetParam().original;
  EXPECT_EQ(GetParam().isOther, HasOtherLineBreaks(original, WithLineBreaksOf(original, "x\ny\n")));
}

INSTANTIATE_TEST_SUITE_P(Rows, LineBreaks, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
