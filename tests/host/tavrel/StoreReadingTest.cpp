#include <filesystem>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <tavrel/settings/TavrelSettingsClient.h>
#include <unistd.h>

#include "host/tavrel-settings/StoreReading.h"
#include "tests/host/tavrel/ChangeRecorder.h"
#include "tests/host/tavrel/StoreTest.h"
#include "tests/support/TimeLimit.h"

namespace tavrel {
namespace settings {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::ThrowsMessage;

using Expected = core::IniFile::Groups;

struct Format {
  const char* name;
  const char* text;
  Expected groups;
};

void PrintTo(const Format& row, std::ostream* out) { *out << row.name; }

const Format kFormats[] = {
    {"NoText", "", {}},
    {"CommentsAlone", "# nothing\n\n   # more\n", {}},
    {"OneKey", "[A]\nx=1\n", {{"A", {{"x", "1"}}}}},
    {"NoLineBreakAtTheEnd", "[A]\nx=1", {{"A", {{"x", "1"}}}}},
    {"LineEndsOfOtherSystems", "[A]\r\nx=1\r\n", {{"A", {{"x", "1"}}}}},
    {"EmptyGroup", "[A]\n[B]\n", {{"A", {}}, {"B", {}}}},
    {"GroupWithSlashAndHash", "[A/B#1]\nx=1\n", {{"A/B#1", {{"x", "1"}}}}},
    {"EmptyValue", "[A]\nx=\n", {{"A", {{"x", ""}}}}},
    {"ValueWithEqualsSign", "[A]\nx=1=2\n", {{"A", {{"x", "1=2"}}}}},
    {"ValueWithHash", "[A]\nx=1 # one\n", {{"A", {{"x", "1 # one"}}}}},
    {"ValueWithBackslash", "[A]\nx=\\n\\s\\\n", {{"A", {{"x", R"(\n\s\)"}}}}},
    {"BlanksAroundTheEqualsSign", "[A]\n  x y \t= \t1\n", {{"A", {{"x y", "1"}}}}},
    {"BlanksAfterAValue", "[A]\nx=1 \n", {{"A", {{"x", "1 "}}}}},
    {"CommentBetweenKeys", "[A]\nx=1\n# y=2\nz=3\n", {{"A", {{"x", "1"}, {"z", "3"}}}}},
    {"GroupTwice", "[A]\nx=1\n[B]\n[A]\ny=2\n", {{"A", {{"x", "1"}, {"y", "2"}}}, {"B", {}}}},
    {"KeyTwice", "[A]\nx=1\nx=2\n", {{"A", {{"x", "2"}}}}},
    {"KeysInLanguages", "[A]\nx=1\nx[de]=2\n", {{"A", {{"x", "1"}, {"x[de]", "2"}}}}},
    {"BytesThatAreNoUnicode", "[A]\nx=\xff\n", {{"A", {{"x", "\xff"}}}}},
};

class AStore : public tests::StoreTest {};

class TheText : public tests::StoreTest, public testing::WithParamInterface<Format> {};

TEST_P(TheText, GivesGroupsAndKeys) {
  Write(GetParam().text);
  EXPECT_EQ(GetParam().groups, Groups());
}

INSTANTIATE_TEST_SUITE_P(Rows, TheText, testing::ValuesIn(kFormats),
                         testing::PrintToStringParamName());

struct Malformed {
  const char* name;
  std::string text;
  const char* line;
  const char* reason;
};

void PrintTo(const Malformed& row, std::ostream* out) { *out << row.name; }

const Malformed kMalformed[] = {
    {"NeitherKeyNorGroup", "# first\n\n[A]\nx=1\nabc\ny=2\n", ":5: ", "abc"},
    {"TwoBadLines", "[A]\nfirst\nsecond\n", ":2: ", "first"},
    {"LastLineWithoutBreak", "[A]\nabc", ":2: ", "abc"},
    {"GroupWithAReturnButNoBreak", "[A]\nx=1\n[B]\r", ":3: ", "[B]"},
    {"KeyBeforeTheFirstGroup", "# first\nx=1\n[A]\n", ":2: ", "group"},
    {"GroupThatIsNotClosed", "[A]\nx=1\n[B\n", ":3: ", "[B"},
    {"TextAfterAGroup", "[A] # first\n", ":1: ", "[A] # first"},
    {"GroupWithoutName", "[]\n", ":1: ", "group name"},
    {"KeyWithoutName", "[A]\n=1\n", ":2: ", "=1"},
    {"CommentWithSemicolon", "[A]\n; first\n", ":2: ", "; first"},
    {"NullByte", std::string("[A]\nx=1\ny=\0002\n", 13), ":3: ", "null byte"},
    {"NullByteAfterAnotherBadLine", std::string("[A]\nabc\ny=\0002\n", 13), ":2: ", "abc"},
    {"EncodingInTheFirstGroup", "[A]\n[B]\nEncoding=x\n[A]\nEncoding=x\n", ":5: ", "encoding"},
    {"TextAfterAnIndentedGroup", "[A]\n \t[B] \n\n[C]x\n", ":4: ", "[C]x"},
};

class AMalformedLine : public tests::StoreTest, public testing::WithParamInterface<Malformed> {};

TEST_P(AMalformedLine, IsReportedWithFileAndLine) {
  Write(GetParam().text);
  EXPECT_THAT([] { Store().Read(); },
              ThrowsMessage<std::runtime_error>(
                  AllOf(StartsWith(Path() + GetParam().line), HasSubstr(GetParam().reason))));
}

INSTANTIATE_TEST_SUITE_P(Rows, AMalformedLine, testing::ValuesIn(kMalformed),
                         testing::PrintToStringParamName());

TEST_F(AStore, IsRefusedSoonForTheLastOfManyLines) {
  const tests::TimeLimit limit;
  std::string text = "[A]\n";
  for (int key = 0; key < 20000; ++key) text += "key" + std::to_string(key) + "=some value\n";
  Write(text + "abc\n");
  EXPECT_THAT([] { Store().Read(); },
              ThrowsMessage<MalformedStore>(StartsWith(Path() + ":20002: ")));
}

struct Irregular {
  const char* name;
  std::function<void(const std::string&)> make;
};

void PrintTo(const Irregular& row, std::ostream* out) { *out << row.name; }

/// Leads to a pipe that has no name, as a shell's <(...) does.
void LinkToPipe(const std::string& path) {
  int ends[2];
  ASSERT_EQ(0, pipe(ends));
  std::filesystem::create_symlink("/proc/self/fd/" + std::to_string(ends[0]), path);
}

const Irregular kIrregular[] = {
    {"PipeWithoutName", LinkToPipe},
    {"Fifo", [](const std::string& path) { ASSERT_EQ(0, mkfifo(path.c_str(), 0666)); }},
    {"Device", [](const std::string& path) { std::filesystem::create_symlink("/dev/zero", path); }},
    {"Directory", [](const std::string& path) { std::filesystem::create_directory(path); }},
};

class WhatIsNoRegularFile : public tests::StoreTest, public testing::WithParamInterface<Irregular> {
 protected:
  WhatIsNoRegularFile() { GetParam().make(Path()); }

  const tests::TimeLimit m_limit;
};

TEST_P(WhatIsNoRegularFile, IsNotRead) {
  EXPECT_THAT([] { Store().Read(); }, ThrowsMessage<std::runtime_error>(HasSubstr("cannot read")));
}

TEST_P(WhatIsNoRegularFile, IsNotWritten) {
  EXPECT_THAT([] { Set("A", "x", "1"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("cannot read")));
  EXPECT_FALSE(std::filesystem::is_regular_file(Path()));
}

TEST_P(WhatIsNoRegularFile, IsNotWatched) {
  tests::ChangeRecorder recorder;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  EXPECT_THAT([&] { client.Subscribe(&recorder, "A"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("cannot read")));
}

INSTANTIATE_TEST_SUITE_P(Rows, WhatIsNoRegularFile, testing::ValuesIn(kIrregular),
                         testing::PrintToStringParamName());

TEST_F(AStore, IsEmptyIfTheFileDoesNotExist) {
  EXPECT_THAT(Groups(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(Path()));
}

TEST_F(AStore, ThatIsADirectoryIsReported) {
  std::filesystem::create_directory(Path());
  EXPECT_THAT([] { Store().Read(); },
              ThrowsMessage<std::runtime_error>(AllOf(HasSubstr(Path()), HasSubstr("directory"))));
}

TEST_F(AStore, BelowAFileIsReported) {
  Write("");
  setenv("TAVREL_SETTINGS", (Path() + "/below.ini").c_str(), 1);
  EXPECT_THAT([] { Store().Read(); }, ThrowsMessage<std::runtime_error>(
                                          AllOf(HasSubstr(Path()), HasSubstr("Not a directory"))));
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
