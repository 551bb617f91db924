#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Settings.h>

#include "tests/settings/SettingsText.h"

namespace analytics {
namespace {

using Pipes = std::vector<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::LoadContent;
using tests::LoadText;

constexpr char kDefaultPipe[] = "/var/run/primary.h264UserData.pipe";

struct Row {
  const char* name;
  const char* file;
  Pipes expected;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

const Row kRows[] = {
    {"None", "<s/>", {kDefaultPipe}},
    {"OneEmpty", "<s><userdataPipe/></s>", {kDefaultPipe}},
    {"AllEmpty", "<s><userdataPipe/><userdataPipe></userdataPipe></s>", {kDefaultPipe}},
    {"One", "<s><userdataPipe>/a</userdataPipe></s>", {"/a"}},
    {"TheDefaultItself",
     "<s><userdataPipe>/var/run/primary.h264UserData.pipe</userdataPipe></s>",
     {kDefaultPipe}},
    {"ThreeInDocumentOrder",
     "<s><userdataPipe>/c</userdataPipe><x><userdataPipe>/a</userdataPipe></x>"
     "<userdataPipe>/b</userdataPipe></s>",
     {"/c", "/a", "/b"}},
    {"EmptyAmongOthers",
     "<s><userdataPipe/><userdataPipe>/a</userdataPipe><userdataPipe/>"
     "<userdataPipe>/b</userdataPipe></s>",
     {"/a", "/b"}},
    {"Repeated",
     "<s><userdataPipe>/a</userdataPipe><userdataPipe>/a</userdataPipe></s>",
     {"/a", "/a"}},
    {"Blank", "<s><userdataPipe> </userdataPipe></s>", {" "}},
    {"BlanksAround", "<s><userdataPipe> /a </userdataPipe></s>", {" /a "}},
    {"RootElement", "<userdataPipe>/a</userdataPipe>", {"/a"}},
    {"InOtherCase", "<s><userDataPipe>/a</userDataPipe></s>", {kDefaultPipe}},
    {"InANamespace", "<s xmlns='urn:x'><userdataPipe>/a</userdataPipe></s>", {kDefaultPipe}},
    {"Attributes", "<s userdataPipe='/a'><userdataPipe value='/b'/></s>", {kDefaultPipe}},
    {"ChildElement", "<s><userdataPipe><b>/a</b></userdataPipe></s>", {kDefaultPipe}},
};

class TheUserDataPipes : public testing::TestWithParam<Row> {};

TEST_P(TheUserDataPipes, AreTheTextsThatAreNotEmptyOrTheDefault) {
  ASSERT_TRUE(LoadText(GetParam().file));
  EXPECT_EQ(GetParam().expected, Settings::UserDataPipes());
}

INSTANTIATE_TEST_SUITE_P(Rows, TheUserDataPipes, testing::ValuesIn(kRows),
                         testing::PrintToStringParamName());

TEST(TheDefaultPipe, IsNotFoundByAQuery) {
  ASSERT_TRUE(LoadText("<settings/>"));
  EXPECT_THAT(Settings::GetValues("//userdataPipe"), IsEmpty());
  EXPECT_THAT(Settings::UserDataPipes(), ElementsAre(kDefaultPipe));
}

TEST(TheListOfPipes, OfTwoFilesAreNeverMerged) {
  ASSERT_TRUE(LoadContent("<userdataPipe>/a</userdataPipe><userdataPipe>/b</userdataPipe>"));
  ASSERT_TRUE(LoadContent("<userdataPipe>/c</userdataPipe>"));
  EXPECT_THAT(Settings::UserDataPipes(), ElementsAre("/c"));
  ASSERT_TRUE(LoadText("<settings/>"));
  EXPECT_THAT(Settings::UserDataPipes(), ElementsAre(kDefaultPipe));
}

TEST(TheListOfPipes, OnceReturnedDoNotChangeWithALaterLoad) {
  ASSERT_TRUE(LoadContent("<userdataPipe>/a</userdataPipe>"));
  const Pipes& returned = Settings::UserDataPipes();
  ASSERT_TRUE(LoadContent("<userdataPipe>/b</userdataPipe>"));
  EXPECT_THAT(returned, ElementsAre("/a"));
}

TEST(TheListOfPipes, ChangedByTheCallerStayAsTheyAreInTheSettings) {
  ASSERT_TRUE(LoadContent("<userdataPipe>/a</userdataPipe>"));
  Settings::UserDataPipes().emplace_back("/b");
  EXPECT_THAT(Settings::UserDataPipes(), ElementsAre("/a"));
}

}  // namespace
}  // namespace analytics
