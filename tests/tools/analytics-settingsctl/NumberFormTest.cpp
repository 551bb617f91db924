#include "check/Number.h"

#include <gtest/gtest.h>

using settingsctl::FormOfNumber;
using settingsctl::IsWholeNumber;
using settingsctl::NumberForm;

namespace {

struct Row {
  const char* name;  // names the row in the report
  const char* text;
  NumberForm form;
  bool isWhole;  // as a coordinate, whose fraction of zeros loses nothing
};

const Row kRows[] = {
    {"Empty", "", NumberForm::kBlank, false},
    {"OnlyBlanks", " \t\n", NumberForm::kBlank, false},
    {"Plain", "12", NumberForm::kPlain, true},
    {"Zero", "0", NumberForm::kPlain, true},
    {"EndingInZeros", "100", NumberForm::kPlain, true},
    {"Negative", "-12", NumberForm::kPlain, true},
    {"WithPlus", "+12", NumberForm::kPlain, true},
    {"BlanksAround", " 12\n", NumberForm::kPlain, true},
    {"TrailingText", "12px", NumberForm::kTrailing, false},
    {"TrailingWord", "12 px", NumberForm::kTrailing, false},
    {"Fraction", "12.5", NumberForm::kTrailing, false},
    {"FractionEndingInZero", "12.50", NumberForm::kTrailing, false},
    {"FractionOfZeros", "12.000", NumberForm::kTrailing, true},
    {"PointWithoutFraction", "12.", NumberForm::kTrailing, true},
    {"PointWithoutNumber", ".0", NumberForm::kNone, false},
    {"Hexadecimal", "0x1F", NumberForm::kTrailing, false},
    {"Exponent", "1e3", NumberForm::kTrailing, false},
    {"Word", "abc", NumberForm::kNone, false},
    {"SignAlone", "-", NumberForm::kNone, false},
    {"Greatest", "2147483647", NumberForm::kPlain, true},
    {"BeyondTheGreatest", "2147483648", NumberForm::kOutOfRange, false},
    {"Least", "-2147483648", NumberForm::kPlain, true},
    {"BeyondTheLeast", "-2147483649", NumberForm::kOutOfRange, false},
    {"FarBeyond", "99999999999999999999999", NumberForm::kOutOfRange, false},
};

class ANumber : public testing::TestWithParam<Row> {};

TEST_P(ANumber, HasTheFormOfTheTable) { EXPECT_EQ(GetParam().form, FormOfNumber(GetParam().text)); }

TEST_P(ANumber, IsWholeAsTheTableSays) {
  EXPECT_EQ(GetParam().isWhole, IsWholeNumber(GetParam().text));
}

TEST_P(ANumber, HasAProblemUnlessItIsPlain) {
  const NumberForm form = FormOfNumber(GetParam().text);
  EXPECT_EQ(form == NumberForm::kPlain, settingsctl::NumberProblem(form).empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, ANumber, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
