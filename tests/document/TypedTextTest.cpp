#include "document/TypedText.h"

#include <gtest/gtest.h>

namespace analytics {
namespace {

TEST(AnInt, IsReadFromItsDecimalDigits) { EXPECT_EQ(12, NumberFromText("12", 7)); }

}  // namespace
}  // namespace analytics
