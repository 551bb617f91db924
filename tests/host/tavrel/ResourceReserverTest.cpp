#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <tavrel/settings/ResourceReserver.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/host/tavrel/ChildProcess.h"
#include "tests/host/tavrel/StoreTest.h"

namespace tavrel {
namespace settings {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

struct Row {
  const char* name;
  const char* store;
  int available;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"NoStore", "", 0},
    {"NoClaims", "[Resources/CPU]\nCapacity=8\n", 8},
    {"NoCapacity", "[Resources/CPU]\n[Resources/CPU/A]\nUsage=3\n", -3},
    {"TwoClaims",
     "[Resources/CPU]\nCapacity=8\n[Resources/CPU/A]\nUsage=3\n[Resources/CPU/"
     "Analytics]\nUsage=4\n",
     1},
    {"LoweredCapacity", "[Resources/CPU]\nCapacity=2\n[Resources/CPU/A]\nUsage=3\n", -1},
    {"ConsumerWithoutUsage", "[Resources/CPU]\nCapacity=8\n[Resources/CPU/A]\nOther=3\n", 8},
    {"DeeperGroup", "[Resources/CPU]\nCapacity=8\n[Resources/CPU/A/B]\nUsage=3\n", 8},
    {"OtherResources",
     "[Resources/CPU]\nCapacity=8\n[Resources/CPU2/A]\nUsage=3\n[Resources/GPU/A]\nUsage=3\n", 8},
    {"SumBeyondTheRange",
     "[Resources/CPU]\nCapacity=0\n[Resources/CPU/A]\nUsage=2147483647\n"
     "[Resources/CPU/B]\nUsage=2147483647\n",
     kSmallest},
    {"NegativeUsage", "[Resources/CPU]\nCapacity=2147483647\n[Resources/CPU/A]\nUsage=-1\n",
     kLargest},
};

class Availability : public tests::StoreTest, public testing::WithParamInterface<Row> {};

TEST_P(Availability, IsTheCapacityLessAllClaims) {
  Write(GetParam().store);
  TavrelSettingsClient client(TavrelSettingsClient::kQuery);
  EXPECT_EQ(GetParam().available,
            ResourceReserver(&client, "CPU", "Analytics").GetAvailableResources());
}

INSTANTIATE_TEST_SUITE_P(Rows, Availability, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

const char* const kNotUnits[] = {"all", "", "8 units", "0x8", "2147483648", "-2147483649"};

/// Whether asking for the free units is an error that names this line of the store.
auto IsReportedInLine(const std::string& path, int line, const std::string& value) {
  return ThrowsMessage<std::runtime_error>(
      testing::StartsWith(path + ":" + std::to_string(line) + ": the " + value + " is not"));
}

int Available() { return ResourceReserver(nullptr, "CPU", "Analytics").GetAvailableResources(); }

class AnAmountThatIsNoInteger : public tests::StoreTest,
                                public testing::WithParamInterface<const char*> {};

TEST_P(AnAmountThatIsNoInteger, IsReportedWithItsLineAsACapacity) {
  Write(std::string("# Units.\n[Resources/CPU]\nCapacity=") + GetParam() + "\n");
  EXPECT_THAT(&Available,
              IsReportedInLine(Path(), 3, std::string("Capacity \"") + GetParam() + "\""));
}

TEST_P(AnAmountThatIsNoInteger, IsReportedWithItsLineAsAUsage) {
  Write(std::string("[Resources/CPU]\nCapacity=8\n\n[Resources/CPU/A]\nUsage=") + GetParam());
  EXPECT_THAT(&Available, IsReportedInLine(Path(), 5, std::string("Usage \"") + GetParam() + "\""));
}

INSTANTIATE_TEST_SUITE_P(Rows, AnAmountThatIsNoInteger, testing::ValuesIn(kNotUnits));

TEST_F(AnAmountThatIsNoInteger, IsReportedWhereItStandsLast) {
  Write(
      "[Resources/CPU]\nCapacity=all\nCapacity=8\nCapacity=many\n[Resources/CPU/A]\nUsage=1\n"
      "[Other]\nCapacity=9\n");
  EXPECT_THAT(&Available, IsReportedInLine(Path(), 4, "Capacity \"many\""));
}

TEST_F(AnAmountThatIsNoInteger, DoesNotMatterWhereALaterOneIs) {
  Write("[Resources/CPU]\nCapacity=all\nCapacity=8\n");
  EXPECT_EQ(8, Available());
}

TEST_F(AnAmountThatIsNoInteger, DoesNotMatterInAnotherResource) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/GPU]\nCapacity=all\n");
  EXPECT_EQ(8, Available());
}

class AClaim : public tests::StoreTest {
 protected:
  static bool Claim(int units) {
    TavrelSettingsClient client(TavrelSettingsClient::kQuery);
    return ResourceReserver(&client, "CPU", "Analytics").TrySetUsage(units);
  }

  std::string Usage() const {
    std::string usage = "none";
    Store().Read().TryGetValue(usage, "Resources/CPU/Analytics", "Usage");
    return usage;
  }
};

TEST_F(AClaim, UpToTheCapacityIsAccepted) {
  Write("[Resources/CPU]\nCapacity=8\n");
  EXPECT_TRUE(Claim(8));
  EXPECT_EQ("8", Usage());
}

TEST_F(AClaim, BeyondTheCapacityIsRefused) {
  Write("[Resources/CPU]\nCapacity=8\n");
  EXPECT_FALSE(Claim(9));
  EXPECT_EQ("none", Usage());
}

TEST_F(AClaim, TogetherWithOthersBeyondTheCapacityIsRefused) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Other]\nUsage=3\n");
  EXPECT_FALSE(Claim(6));
  EXPECT_TRUE(Claim(5));
}

TEST_F(AClaim, ReplacesTheEarlierOne) {
  Write("[Resources/CPU]\nCapacity=8\n");
  EXPECT_TRUE(Claim(5));
  EXPECT_TRUE(Claim(7));
  EXPECT_EQ("7", Usage());
}

TEST_F(AClaim, KeepsTheEarlierOneIfItIsRefused) {
  Write("[Resources/CPU]\nCapacity=8\n");
  EXPECT_TRUE(Claim(5));
  EXPECT_FALSE(Claim(9));
  EXPECT_EQ("5", Usage());
}

TEST_F(AClaim, OfNothingGivesAllBack) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Analytics]\nUsage=5\n");
  EXPECT_TRUE(Claim(0));
  EXPECT_EQ("0", Usage());
}

struct ClaimRow {
  const char* name;
  const char* usage;  // the present claim; none if it is empty
  int units;
  bool isAccepted;
};

void PrintTo(const ClaimRow& row, std::ostream* out) { *out << row.name; }

const ClaimRow kOvercommitted[] = {
    {"GivingAllBackIsAccepted", "Usage=5", 0, true},
    {"GivingOneBackIsAccepted", "Usage=5", 4, true},
    {"ThePresentOneIsAccepted", "Usage=5", 5, true},
    {"OneMoreIsRefused", "Usage=5", 6, false},
    {"NothingIsAcceptedWithoutAPresentOne", "", 0, true},
    {"OneIsRefusedWithoutAPresentOne", "", 1, false},
    {"NothingIsAcceptedForANegativeOne", "Usage=-1", 0, true},
    {"OneIsRefusedForANegativeOne", "Usage=-1", 1, false},
    {"NothingIsAcceptedForOneThatIsNoInteger", "Usage=all", 0, true},
    {"OneIsRefusedForOneThatIsNoInteger", "Usage=all", 1, false},
};

class AClaimWhereOthersHoldMoreThanThereIs : public AClaim,
                                             public testing::WithParamInterface<ClaimRow> {};

TEST_P(AClaimWhereOthersHoldMoreThanThereIs, FollowsTheTable) {
  Write(std::string("[Resources/CPU]\nCapacity=2\n[Resources/CPU/Other]\nUsage=3\n") +
        "[Resources/CPU/Analytics]\n" + GetParam().usage + "\n");
  const std::string before = Text();
  EXPECT_EQ(GetParam().isAccepted, Claim(GetParam().units));
  if (GetParam().isAccepted)
    EXPECT_EQ(std::to_string(GetParam().units), Usage());
  else
    EXPECT_EQ(before, Text());
}

INSTANTIATE_TEST_SUITE_P(Rows, AClaimWhereOthersHoldMoreThanThereIs,
                         testing::ValuesIn(kOvercommitted), testing::PrintToStringParamName());

TEST_F(AClaim, ReplacesOneOfItsOwnThatIsNoInteger) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Analytics]\nUsage=all\n");
  EXPECT_TRUE(Claim(8));
  EXPECT_EQ("8", Usage());
}

TEST_F(AClaim, IsReportedWhereThatOfAnotherIsNoInteger) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Other]\nUsage=all\n");
  EXPECT_THAT([] { Claim(1); }, IsReportedInLine(Path(), 4, "Usage \"all\""));
  EXPECT_EQ("none", Usage());
}

TEST_F(AClaim, IsReportedWhereTheCapacityIsNoInteger) {
  Write("[Resources/CPU]\nCapacity=all\n");
  EXPECT_THAT([] { Claim(1); }, IsReportedInLine(Path(), 2, "Capacity \"all\""));
}

TEST_F(AClaim, IsGivenBackThoughThatOfAnotherIsNoInteger) {
  Write("[Resources/CPU]\n[Resources/CPU/Analytics]\nUsage=5\n[Resources/CPU/Other]\nUsage=all\n");
  EXPECT_TRUE(Claim(3));
  EXPECT_EQ("3", Usage());
}

TEST_F(AClaim, OfANegativeNumberIsRefused) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Analytics]\nUsage=5\n");
  EXPECT_FALSE(Claim(-1));
  EXPECT_FALSE(Claim(kSmallest));
  EXPECT_EQ("5", Usage());
}

TEST_F(AClaim, OfTheLargestNumberDoesNotOverflow) {
  Write("[Resources/CPU]\nCapacity=8\n[Resources/CPU/Other]\nUsage=2147483647\n");
  EXPECT_FALSE(Claim(kLargest));
}

TEST_F(AClaim, OfAnUnknownResourceIsRefused) {
  EXPECT_FALSE(Claim(1));
  EXPECT_FALSE(std::filesystem::exists(Path()));
}

TEST_F(AClaim, InAMalformedStoreIsReported) {
  Write("[Resources/CPU]\nabc\n");
  const auto isReported = ThrowsMessage<std::runtime_error>(HasSubstr(Path() + ":2: "));
  EXPECT_THAT([] { Claim(1); }, isReported);
  EXPECT_THAT([] { ResourceReserver(nullptr, "CPU", "Analytics").GetAvailableResources(); },
              isReported);
}

struct NoName {
  const char* name;
  const char* resource;
  const char* consumer;
  const char* error;
};

void PrintTo(const NoName& row, std::ostream* out) { *out << row.name; }

const NoName kNoNames[] = {
    {"EmptyResource", "", "Analytics", "resource: \"\""},
    {"EmptyConsumer", "CPU", "", "consumer: \"\""},
    {"ResourceOfTwoLevels", "CPU/Core", "Analytics", "resource: \"CPU/Core\""},
    {"ConsumerOfTwoLevels", "CPU", "Analytics/Motion", "consumer: \"Analytics/Motion\""},
    {"ConsumerWithASlashAtItsEnd", "CPU", "Analytics/", "consumer: \"Analytics/\""},
};

class ANameThatWouldEscapeTheSum : public testing::TestWithParam<NoName> {};

TEST_P(ANameThatWouldEscapeTheSum, IsRefused) {
  EXPECT_THAT([] { ResourceReserver(nullptr, GetParam().resource, GetParam().consumer); },
              ThrowsMessage<std::invalid_argument>(HasSubstr(GetParam().error)));
}

INSTANTIATE_TEST_SUITE_P(Rows, ANameThatWouldEscapeTheSum, testing::ValuesIn(kNoNames),
                         testing::PrintToStringParamName());

class RacingClaims : public tests::StoreTest {
 protected:
  using Process = std::unique_ptr<tests::ChildProcess>;

  /// Starts a process that claims one unit for a consumer of its own, and succeeds if it gets it.
  Process Claimer(const std::string& consumer) {
    return std::make_unique<tests::ChildProcess>([this, consumer] {
      m_start.Wait();
      ResourceReserver reserver(nullptr, "CPU", consumer);
      return reserver.TrySetUsage(1) ? EXIT_SUCCESS : EXIT_FAILURE;
    });
  }

  tests::StartSignal m_start;
};

TEST_F(RacingClaims, NeverExceedTheCapacity) {
  constexpr int kCapacity = 6;
  Write("[Resources/CPU]\nCapacity=" + std::to_string(kCapacity) + "\n");
  std::vector<Process> claimers(24);
  for (std::size_t number = 0; number < claimers.size(); ++number)
    claimers[number] = Claimer("Consumer" + std::to_string(number));
  m_start.Give();
  int accepted = 0;
  for (const Process& claimer : claimers) accepted += claimer->Wait() == EXIT_SUCCESS ? 1 : 0;
  EXPECT_EQ(kCapacity, accepted);
  EXPECT_EQ(0, ResourceReserver(nullptr, "CPU", "Any").GetAvailableResources());
}

}  // namespace
}  // namespace settings
}  // namespace tavrel
