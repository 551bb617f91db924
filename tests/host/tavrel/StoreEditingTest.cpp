#include <filesystem>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>

#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using core::IniFile;
using testing::ThrowsMessage;

struct Row {
  const char* name;
  const char* before;
  std::function<void(IniFile&)> edit;
  const char* after;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

std::function<void(IniFile&)> Setting(const char* group, const char* key, const char* value) {
  return [=](IniFile& settings) { settings.SetValue(group, key, value); };
}

std::function<void(IniFile&)> Removing(const char* group) {
  return [=](IniFile& settings) { settings.RemoveGroup(group); };
}

std::function<void(IniFile&)> Removing(const char* group, const char* key) {
  return [=](IniFile& settings) { settings.RemoveKey(group, key); };
}

std::function<void(IniFile&)> Adding(const char* group) {
  return [=](IniFile& settings) { settings.AddGroup(group); };
}

const char* const kDoors =
    "# all doors\n\n# the way in\n[North]\n# metres\nWidth = 1\nOpen=no\n\n# the way out\n[South]\n"
    "  Width=2\n# end\n";

const Row kRows[] = {
    {"SetsInAnEmptyStore", "", Setting("A", "x", "1"), "[A]\nx=1\n"},
    {"AddsAnEmptyGroup", "[A]\nx=1\n", Adding("B"), "[A]\nx=1\n\n[B]\n"},
    {"AddsAGroupBehindABlankLine", "[A]\n\n", Adding("B"), "[A]\n\n[B]\n"},
    {"ReplacesAValue", "[A]\nx=1\ny=2\n", Setting("A", "x", "3"), "[A]\nx=3\ny=2\n"},
    {"SetsAnEmptyValue", "[A]\nx=1\n", Setting("A", "x", ""), "[A]\nx=\n"},
    {"ReplacesAnEmptyValue", "[A]\nx=\n", Setting("A", "x", "1"), "[A]\nx=1\n"},
    {"KeepsTheBlanksBeforeAValue", "[A]\n x = 1\n", Setting("A", "x", "3"), "[A]\n x = 3\n"},
    {"ReplacesAValueWithEqualsSigns", "[A]\nx=1=2\n", Setting("A", "x", "3=4"), "[A]\nx=3=4\n"},
    {"AddsAKeyBehindTheLast", "[A]\nx=1\n\n# of B\n[B]\n", Setting("A", "y", "2"),
     "[A]\nx=1\ny=2\n\n# of B\n[B]\n"},
    {"AddsAKeyToAnEmptyGroup", "[A]\n\n[B]\n", Setting("A", "y", "2"), "[A]\ny=2\n\n[B]\n"},
    {"AddsAKeyBelowALineWithoutBreak", "[A]\nx=1", Setting("A", "y", "2"), "[A]\nx=1\ny=2\n"},
    {"AddsAKeyToTheLastPartOfAGroup", "[A]\nx=1\n[B]\n[A]\ny=2\n", Setting("A", "z", "3"),
     "[A]\nx=1\n[B]\n[A]\ny=2\nz=3\n"},
    {"TellsEqualKeysOfTwoGroupsApart", "[A]\nx=1\n[B]\nx=1\n", Setting("B", "x", "2"),
     "[A]\nx=1\n[B]\nx=2\n"},
    {"RemovesAKey", "[A]\nx=1\ny=2\n", Removing("A", "x"), "[A]\ny=2\n"},
    {"RemovesAKeyOfOneGroup", "[A]\nx=1\n[B]\nx=1\n", Removing("B", "x"), "[A]\nx=1\n[B]\n"},
    {"KeepsAGroupWithoutKeys", "[A]\nx=1\n", Removing("A", "x"), "[A]\n"},
    {"RemovesAKeyThatStandsTwice", "[A]\nx=1\nx=2\ny=3\n", Removing("A", "x"), "[A]\ny=3\n"},
    {"SetsAKeyThatStandsTwice", "[A]\nx=1\nx=2\n", Setting("A", "x", "3"), "[A]\nx=3\nx=3\n"},
    {"RemovesAGroup", "[A]\nx=1\n[B]\ny=2\n", Removing("A"), "[B]\ny=2\n"},
    {"RemovesAllPartsOfAGroup", "[A]\nx=1\n[B]\ny=2\n[A]\nz=3\n", Removing("A"), "[B]\ny=2\n"},
    {"KeepsCommentsWhereAGroupGoes", kDoors, Removing("North"),
     "# all doors\n\n# the way in\n# metres\n\n# the way out\n[South]\n  Width=2\n# end\n"},
    {"KeepsCommentsWhereTheLastGroupGoes", "[A]\n# of B\n[B]\n# end\n", Removing("B"),
     "[A]\n# of B\n# end\n"},
    {"KeepsCommentsWhereAKeyGoes", "[A]\n# of x\nx=1\n", Removing("A", "x"), "[A]\n# of x\n"},
    {"KeepsKeysInLanguages", "[A]\nx[de]=1\n", Setting("A", "x", "2"), "[A]\nx[de]=1\nx=2\n"},
    {"KeepsLineEndsOfOtherSystems", "[A]\r\nx=1\r\ny=2\r\n", Removing("A", "x"), "[A]\r\ny=2\r\n"},
    {"KeepsBytesThatAreNoUnicode", "[A]\n# \xff\nx=\xfe\n", Setting("A", "y", "\xfd"),
     "[A]\n# \xff\nx=\xfe\ny=\xfd\n"},
};

class AnEdit : public tests::StoreTest {};

class TheEditedText : public tests::StoreTest, public testing::WithParamInterface<Row> {};

TEST_P(TheEditedText, HasOnlyTheMeantLinesChanged) {
  Write(GetParam().before);
  IniFile expected = Store().Read();
  GetParam().edit(expected);
  Store().Edit(GetParam().edit);
  EXPECT_EQ(GetParam().after, Text());
  EXPECT_EQ(expected.AllGroups(), Groups());
}

INSTANTIATE_TEST_SUITE_P(Rows, TheEditedText, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

TEST_F(AnEdit, ThatChangesNothingDoesNotTouchTheFile) {
  Write("[A]\n x = 1");
  const auto written = std::filesystem::last_write_time(Path());
  Store().Edit([](IniFile& settings) {
    settings.SetValue("A", "x", "1");
    settings.RemoveKey("A", "y");
    settings.RemoveGroup("B");
  });
  EXPECT_EQ("[A]\n x = 1", Text());
  EXPECT_EQ(written, std::filesystem::last_write_time(Path()));
}

TEST_F(AnEdit, ThatThrowsWritesNothing) {
  Write("[A]\nx=1\n");
  EXPECT_THROW(Store().Edit([](IniFile& settings) {
    settings.SetValue("A", "x", "2");
    throw std::logic_error("on purpose");
  }),
               std::logic_error);
  EXPECT_EQ("[A]\nx=1\n", Text());
}

TEST_F(AnEdit, OfAMalformedStoreIsRefused) {
  Write("[A]\nabc\n");
  EXPECT_THAT([] { Set("A", "x", "1"); },
              ThrowsMessage<std::runtime_error>(testing::HasSubstr(Path() + ":2: ")));
  EXPECT_EQ("[A]\nabc\n", Text());
  EXPECT_FALSE(std::filesystem::exists(Path() + ".lock")) << "others had to wait for that";
}

struct Unholdable {
  const char* name;
  std::string group;
  std::string key;
  std::string value;
};

void PrintTo(const Unholdable& row, std::ostream* out) { *out << row.name; }

const Unholdable kUnholdable[] = {
    {"GroupWithClosingBracket", "A]", "x", "1"},
    {"GroupWithOpeningBracket", "[A", "x", "1"},
    {"GroupWithLineBreak", "A]\n[B", "x", "1"},
    {"GroupWithoutName", "", "x", "1"},
    {"KeyWithEqualsSign", "A", "x=y", "1"},
    {"KeyWithLineBreak", "A", "x=1\ny", "2"},
    {"KeyThatLooksLikeAComment", "A", "#x", "1"},
    {"KeyThatLooksLikeAGroup", "A", "[x]", "1"},
    {"KeyWithLeadingBlank", "A", " x", "1"},
    {"KeyWithTrailingBlank", "A", "x ", "1"},
    {"KeyWithoutName", "A", "", "1"},
    {"ValueWithLineBreak", "A", "x", "1\ny=2"},
    {"ValueWithCarriageReturn", "A", "x", "1\r"},
    {"ValueWithLeadingBlank", "A", "x", " 1"},
    {"ValueWithNullByte", "A", "x", std::string("1\0", 2)},
};

class WhatAFileCannotHold : public tests::StoreTest,
                            public testing::WithParamInterface<Unholdable> {};

TEST_P(WhatAFileCannotHold, IsRefusedWithNothingWritten) {
  Write("[Z]\nz=0\n");
  EXPECT_THROW(Store().Edit([](IniFile& settings) {
    settings.SetValue("Z", "z", "1");
    settings.SetValue(GetParam().group, GetParam().key, GetParam().value);
  }),
               std::invalid_argument);
  EXPECT_EQ("[Z]\nz=0\n", Text());
}

INSTANTIATE_TEST_SUITE_P(Rows, WhatAFileCannotHold, testing::ValuesIn(kUnholdable),
                         testing::PrintToStringParamName());

TEST_F(AnEdit, RefusesAnEmptyGroupThatAFileCannotHold) {
  EXPECT_THROW(Store().Edit(Adding("A]")), std::invalid_argument);
  EXPECT_FALSE(std::filesystem::exists(Path()));
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
