#include "tests/host/tavrel/HostctlTest.h"

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

const char* const kDoors = "# doors\n[Door]\nWidth=90\nName=north\n\n[Door/Lock]\n\n[Gate]\nx=1\n";

struct Success {
  const char* name;
  std::vector<std::string> arguments;
  const char* before;
  const char* after;
  const char* output;
};

void PrintTo(const Success& row, std::ostream* out) { *out << row.name; }

const Success kSuccesses[] = {
    {"GetsAll",
     {"get"},
     kDoors,
     kDoors,
     "[Door]\nName=north\nWidth=90\n\n[Door/Lock]\n\n[Gate]\nx=1\n"},
    {"GetsOneGroup", {"get", "Gate"}, kDoors, kDoors, "[Gate]\nx=1\n"},
    {"GetsAPattern",
     {"get", "Door*"},
     kDoors,
     kDoors,
     "[Door]\nName=north\nWidth=90\n\n[Door/Lock]\n"},
    {"GetsNothing", {"get", "Window"}, kDoors, kDoors, ""},
    {"SetsTheFirstKey", {"set", "A/B#1", "x y", "1 2"}, "", "[A/B#1]\nx y=1 2\n", ""},
    {"SetsAKey", {"set", "Gate", "x", "2"}, "# g\n[Gate]\nx=1\n", "# g\n[Gate]\nx=2\n", ""},
    {"SetsAnEmptyValue", {"set", "Gate", "x", ""}, "[Gate]\nx=1\n", "[Gate]\nx=\n", ""},
    {"SetsANegativeNumber", {"set", "Gate", "x", "-1"}, "", "[Gate]\nx=-1\n", ""},
    {"SetsANegativeFraction", {"set", "Gate", "x", "-1.5"}, "", "[Gate]\nx=-1.5\n", ""},
    {"SetsADash", {"set", "Gate", "x", "--", "--help"}, "", "[Gate]\nx=--help\n", ""},
    {"SetsBrackets", {"set", "Gate", "x", "[1,2]"}, "", "[Gate]\nx=[1,2]\n", ""},
    {"SetsTheNamesOfCommands", {"set", "get", "set", "watch"}, "", "[get]\nset=watch\n", ""},
    {"UnsetsAKey", {"unset", "Gate", "x"}, "[Gate]\nx=1\ny=2\n", "[Gate]\ny=2\n", ""},
    {"UnsetsAGroup", {"unset", "Gate"}, "[Gate]\nx=1\n# d\n[Door]\n", "# d\n[Door]\n", ""},
    {"UnsetsNoGroupForAnEmptyKey", {"unset", "Gate", ""}, "[Gate]\nx=1\n", "[Gate]\nx=1\n", ""},
    {"UnsetsWhatIsNotThere", {"unset", "Gate", "y"}, "[Gate]\nx=1\n", "[Gate]\nx=1\n", ""},
    {"ShowsResources",
     {"resources"},
     "[Resources/GPU]\nCapacity=12345678\n[Resources/CPU]\nCapacity=8\n"
     "[Resources/CPU/Analytics]\nUsage=3\n[Resources/CPU/Rec]\nUsage=6\n",
     nullptr,
     "RESOURCE  CAPACITY  CONSUMER   USAGE      FREE\n"
     "CPU              8  Analytics      3        -1\n"
     "CPU              8  Rec            6        -1\n"
     "GPU       12345678  -              0  12345678\n"},
    {"ShowsThatThereAreNoResources",
     {"resources"},
     kDoors,
     kDoors,
     "RESOURCE  CAPACITY  CONSUMER  USAGE  FREE\n"},
};

class Hostctl : public tests::HostctlTest {};

class HostctlSuccessfully : public tests::HostctlTest,
                            public testing::WithParamInterface<Success> {};

TEST_P(HostctlSuccessfully, DoesWhatItIsAskedFor) {
  Write(GetParam().before);
  const Result result = Run(GetParam().arguments);
  EXPECT_EQ("", result.errors);
  EXPECT_EQ(0, result.status);
  EXPECT_EQ(GetParam().output, result.output);
  EXPECT_EQ(GetParam().after ? GetParam().after : GetParam().before, Text());
}

INSTANTIATE_TEST_SUITE_P(Rows, HostctlSuccessfully, testing::ValuesIn(kSuccesses),
                         testing::PrintToStringParamName());

struct Failure {
  const char* name;
  std::vector<std::string> arguments;
  const char* store;
  const char* error;
};

void PrintTo(const Failure& row, std::ostream* out) { *out << row.name; }

const Failure kFailures[] = {
    {"WithoutCommand", {}, "", "subcommand is required"},
    {"WithAnUnknownCommand", {"show"}, "", "subcommand is required"},
    {"WithAnUnknownOption", {"get", "--all"}, "", "--all"},
    {"WithTooMuch", {"get", "A", "B"}, "", "B"},
    {"WithTooLittle", {"set", "A", "x"}, "", "VALUE is required"},
    {"WithADashThatLooksLikeAnOption", {"set", "A", "x", "-y"}, "", "VALUE is required"},
    {"WithAGroupThatCannotBeHeld", {"set", "A]", "x", "1"}, "", "the group \"A]\""},
    {"WithAKeyThatCannotBeHeld", {"set", "A", "x=y", "1"}, "", "the key \"x=y\""},
    {"ReadingAMalformedStore", {"get"}, "[A]\nabc\n", "store.ini:2: "},
    {"WatchingAMalformedStore", {"watch"}, "[A]\nabc\n", "store.ini:2: "},
    {"ShowingACapacityThatIsNoInteger",
     {"resources"},
     "[Resources/GPU]\nCapacity=many\n",
     "store.ini:2: the Capacity \"many\" is not an integer"},
    {"ShowingAUsageThatIsOutOfRange",
     {"resources"},
     "[Resources/CPU]\nCapacity=8\n[Resources/CPU/Rec]\nUsage=9999999999\n",
     "store.ini:4: the Usage \"9999999999\" is not an integer"},
    {"WritingAMalformedStore", {"unset", "A"}, "[A]\nabc\n", "store.ini:2: "},
};

class HostctlInVain : public tests::HostctlTest, public testing::WithParamInterface<Failure> {};

TEST_P(HostctlInVain, SaysWhyInOneSentence) {
  Write(GetParam().store);
  const Result result = Run(GetParam().arguments);
  EXPECT_EQ(1, result.status);
  EXPECT_EQ("", result.output);
  EXPECT_THAT(result.errors, AllOf(StartsWith("hostctl: "), HasSubstr(GetParam().error)));
  EXPECT_EQ(result.errors.size() - 1, result.errors.find('\n'));
  EXPECT_EQ(GetParam().store, Text());
}

INSTANTIATE_TEST_SUITE_P(Rows, HostctlInVain, testing::ValuesIn(kFailures),
                         testing::PrintToStringParamName());

TEST_F(Hostctl, ExplainsItselfWithExamples) {
  const Result result = Run({"--help"});
  EXPECT_EQ(0, result.status);
  EXPECT_THAT(result.output, AllOf(HasSubstr("resources"), HasSubstr("TAVREL_SETTINGS"),
                                   HasSubstr("hostctl set Resources/CPU Capacity 8")));
}

TEST_F(Hostctl, ExplainsEachCommand) {
  EXPECT_THAT(Run({"set", "--help"}).output, HasSubstr("GROUP KEY VALUE"));
}

TEST_F(Hostctl, FailsIfTheOutputCannotBeWritten) {
  tests::Command get({"/bin/sh", "-c", std::string(TESTS_HOSTCTL) + " resources > /dev/full"});
  EXPECT_EQ(1, get.Wait());
  EXPECT_EQ("hostctl: cannot write the output\n", get.Errors());
}

TEST_F(Hostctl, FailsWithARelativeStoreInADirectoryThatIsGone) {
  const std::string gone = m_directory.PathOf("gone");
  tests::Command get({"/bin/sh", "-c",
                      "mkdir " + gone + " && cd " + gone + " && rmdir " + gone +
                          " && TAVREL_SETTINGS=a.ini " + TESTS_HOSTCTL + " get"});
  EXPECT_EQ(1, get.Wait());
  EXPECT_THAT(get.Errors(), StartsWith("hostctl: cannot find the settings: a.ini"));
}

TEST_F(Hostctl, FindsARelativeStore) {
  Write(kDoors);
  tests::Command get({"/bin/sh", "-c",
                      "cd " + m_directory.Path() + " && TAVREL_SETTINGS=./store.ini " +
                          TESTS_HOSTCTL + " get Gate"});
  EXPECT_EQ(0, get.Wait());
  EXPECT_EQ("[Gate]\nx=1\n", get.Output());
}

TEST_F(Hostctl, GetsWhatMayBeAStoreItself) {
  Write(kDoors);
  const auto groups = Groups();
  Write(Run({"get"}).output);
  EXPECT_EQ(groups, Groups());
}

}  // namespace
