#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::CalibrationText;
using tests::NodePtr;
using tests::RootTag;

constexpr char kNearLeft[] = "<ka:ObjectAtNearLeft left='1' top='2' right='3' bottom='4'/>";
constexpr char kNearWidth[] =
    "<ka:NearWidth><tt:Point x='5' y='6'/><tt:Point x='7' y='8'/></ka:NearWidth>";
constexpr char kFarWidth[] =
    "<ka:FarWidth><tt:Point x='9' y='10'/><tt:Point x='11' y='12'/></ka:FarWidth>";
constexpr char kHeight[] = "<ka:PhysicalHeight>13</ka:PhysicalHeight>";

constexpr char kFilled[] =
    "near left (101,102)-(103,104), near width (105,106)-(107,108), "
    "far width (109,110)-(111,112), height 113";
constexpr char kWhole[] =
    "near left (1,2)-(3,4), near width (5,6)-(7,8), far width (9,10)-(11,12), height 13";

std::string WholeContent() { return std::string(kNearLeft) + kNearWidth + kFarWidth + kHeight; }

/// The parameters of a rule or engine whose calibration holds `content`.
std::string Parameters(const std::string& content) {
  return "<tt:Parameters><tt:ElementItem Name='Calibration'><ka:Calibration>" + content +
         "</ka:Calibration></tt:ElementItem></tt:Parameters>";
}

class ACalibration : public tests::ProfileTest {
 protected:
  ACalibration() { tests::FillCalibration(m_calibration); }

  /// Reads the calibration of a rule with these parameters and gives all its values.
  std::string ReadRule(const std::string& parameters) {
    Parse("<tt:rule>" + parameters + "</tt:rule>");
    const NodePtr rule(m_profile.SelectRule(""));
    EXPECT_TRUE(m_profile.GetCalibration(m_calibration, rule.get()));
    return CalibrationText(m_calibration);
  }

  Calibration m_calibration;
};

TEST_F(ACalibration, IsReadFromARule) { EXPECT_EQ(kWhole, ReadRule(Parameters(WholeContent()))); }

TEST_F(ACalibration, IsReadFromAnEngine) {
  Parse("<tt:engine>" + Parameters(WholeContent()) + "</tt:engine>");
  const NodePtr engine(m_profile.SelectEngine(""));
  EXPECT_TRUE(m_profile.GetCalibration(m_calibration, engine.get()));
  EXPECT_EQ(kWhole, CalibrationText(m_calibration));
}

TEST_F(ACalibration, IsReadFromTheRootUnlessAContextIsGiven) {
  ParseWhole(RootTag("tt:rule") + Parameters(WholeContent()) + "</tt:rule>");
  EXPECT_TRUE(m_profile.GetCalibration(m_calibration));
  EXPECT_EQ(kWhole, CalibrationText(m_calibration));
}

TEST_F(ACalibration, IsReadWhateverTheOrderOfItsPieces) {
  EXPECT_EQ(kWhole,
            ReadRule(Parameters(std::string(kHeight) + kFarWidth + kNearWidth + kNearLeft)));
}

TEST_F(ACalibration, IsReadWhateverPrefixesTheProfileWrites) {
  ParseWhole(
      "<rule xmlns='http://www.onvif.org/ver10/schema'><Parameters>"
      "<ElementItem Name='Calibration'>"
      "<Calibration xmlns='urn:kestal-com:schema:onvif:analytics:1'>"
      "<PhysicalHeight>13</PhysicalHeight></Calibration></ElementItem></Parameters></rule>");
  EXPECT_TRUE(m_profile.GetCalibration(m_calibration));
  EXPECT_EQ(13, m_calibration.PhysicalHeight());
}

TEST_F(ACalibration, IsTheFirstOfTwo) {
  const std::string other = "<ka:PhysicalHeight>99</ka:PhysicalHeight>";
  EXPECT_EQ(kWhole, ReadRule(Parameters(WholeContent()) + Parameters(other)));
}

TEST_F(ACalibration, HasItsMissingPiecesFilledUpFromASecondOne) {
  EXPECT_EQ(kWhole, ReadRule(Parameters(std::string(kNearLeft) + kNearWidth) +
                             Parameters(std::string(kFarWidth) + kHeight)));
}

TEST_F(ACalibration, HasALineOfPointsThatStandInTwo) {
  const std::string first = "<ka:FarWidth><tt:Point x='1' y='2'/></ka:FarWidth>";
  const std::string second = "<ka:FarWidth><tt:Point x='3' y='4'/></ka:FarWidth>";
  EXPECT_THAT(ReadRule(Parameters(first) + Parameters(second)),
              testing::HasSubstr("far width (1,2)-(3,4),"));
}

TEST_F(ACalibration, OfAnotherRuleIsNotRead) {
  Parse("<tt:rule Type='A'/><tt:rule Type='B'>" + Parameters(WholeContent()) + "</tt:rule>");
  const NodePtr rule(m_profile.SelectRule("A"));
  EXPECT_TRUE(m_profile.GetCalibration(m_calibration, rule.get()));
  EXPECT_EQ(kFilled, CalibrationText(m_calibration));
}

TEST_F(ACalibration, IsNotReadThroughAnEmptyContext) {
  ParseWhole(RootTag("tt:rule") + Parameters(WholeContent()) + "</tt:rule>");
  DocumentNode empty;
  EXPECT_TRUE(m_profile.GetCalibration(m_calibration, &empty));
  EXPECT_EQ(kFilled, CalibrationText(m_calibration));
}

/// What a rule's calibration holds, and all values after it has been read.
struct Row {
  const char* name;
  std::string content;
  const char* expected;
};

const Row kPieces[] = {
    {"NearLeftAlone", kNearLeft,
     "near left (1,2)-(3,4), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 113"},
    {"NearWidthAlone", kNearWidth,
     "near left (101,102)-(103,104), near width (5,6)-(7,8), "
     "far width (109,110)-(111,112), height 113"},
    {"FarWidthAlone", kFarWidth,
     "near left (101,102)-(103,104), near width (105,106)-(107,108), "
     "far width (9,10)-(11,12), height 113"},
    {"HeightAlone", kHeight,
     "near left (101,102)-(103,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 13"},
    {"LeftAndTopOnly", "<ka:ObjectAtNearLeft left='1' top='2'/>",
     "near left (1,2)-(103,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 113"},
    {"RightOnly", "<ka:ObjectAtNearLeft right='3'/>",
     "near left (101,102)-(3,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 113"},
    {"NoNumbers",
     "<ka:ObjectAtNearLeft left='a'/><ka:NearWidth><tt:Point x='a'/><tt:Point y='2'/>"
     "</ka:NearWidth><ka:PhysicalHeight>tall</ka:PhysicalHeight>",
     "near left (0,102)-(103,104), near width (0,0)-(0,2), "
     "far width (109,110)-(111,112), height 0"},
    {"NearWidthOfThreePoints",
     "<ka:NearWidth><tt:Point x='1' y='2'/><tt:Point x='3' y='4'/><tt:Point x='5' y='6'/>"
     "</ka:NearWidth>",
     "near left (101,102)-(103,104), near width (1,2)-(3,4), "
     "far width (109,110)-(111,112), height 113"},
    {"NearWidthOfTwoHalves",
     "<ka:NearWidth><tt:Point x='1' y='2'/></ka:NearWidth>"
     "<ka:NearWidth><tt:Point x='3' y='4'/></ka:NearWidth>",
     "near left (101,102)-(103,104), near width (1,2)-(3,4), "
     "far width (109,110)-(111,112), height 113"},
    {"FirstOfTwoHeights", std::string(kHeight) + "<ka:PhysicalHeight>99</ka:PhysicalHeight>",
     "near left (101,102)-(103,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 13"},
    {"HeightWithUnit", "<ka:PhysicalHeight> 180 cm</ka:PhysicalHeight>",
     "near left (101,102)-(103,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 180"},
    {"HeightOutOfRange", "<ka:PhysicalHeight>3000000000</ka:PhysicalHeight>",
     "near left (101,102)-(103,104), near width (105,106)-(107,108), "
     "far width (109,110)-(111,112), height 2147483647"},
    {"EmptyFirstHeightHidesASecond", std::string("<ka:PhysicalHeight/>") + kHeight, kFilled},
    {"BlankHeight", "<ka:PhysicalHeight> \n </ka:PhysicalHeight>", kFilled},
    {"HeightAsAttribute", "<ka:PhysicalHeight Value='13'/>", kFilled},
    {"NearWidthOfOnePoint", "<ka:NearWidth><tt:Point x='1' y='2'/></ka:NearWidth>", kFilled},
    {"WidthsWithoutPoints", "<ka:NearWidth/><ka:FarWidth/>", kFilled},
    {"NearLeftWithoutAttributes", "<ka:ObjectAtNearLeft/>", kFilled},
    {"VendorPoints", "<ka:NearWidth><ka:Point x='1' y='2'/><ka:Point x='3' y='4'/></ka:NearWidth>",
     kFilled},
    {"OnvifPieces",
     "<tt:ObjectAtNearLeft left='1'/><tt:PhysicalHeight>13</tt:PhysicalHeight><tt:FarWidth>"
     "<tt:Point x='1' y='2'/><tt:Point x='3' y='4'/></tt:FarWidth>",
     kFilled},
    {"DeeperPieces", "<ka:x><ka:PhysicalHeight>13</ka:PhysicalHeight></ka:x>", kFilled},
    {"Empty", "", kFilled},
};

class ACalibrationOf : public ACalibration, public testing::WithParamInterface<Row> {};

TEST_P(ACalibrationOf, SomePiecesKeepsAllOtherValues) {
  EXPECT_EQ(GetParam().expected, ReadRule(Parameters(GetParam().content)));
}

INSTANTIATE_TEST_SUITE_P(Pieces, ACalibrationOf, testing::ValuesIn(kPieces),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

/// Parameters in which the way to a calibration is broken; "%" stands for its pieces.
const Row kBrokenWays[] = {
    {"NoParameters", "", kFilled},
    {"NoItem", "<tt:Parameters/>", kFilled},
    {"NoCalibrationElement",
     "<tt:Parameters><tt:ElementItem Name='Calibration'>%</tt:ElementItem></tt:Parameters>",
     kFilled},
    {"OtherName",
     "<tt:Parameters><tt:ElementItem Name='calibration'><ka:Calibration>%</ka:Calibration>"
     "</tt:ElementItem></tt:Parameters>",
     kFilled},
    {"NoName",
     "<tt:Parameters><tt:ElementItem><ka:Calibration>%</ka:Calibration></tt:ElementItem>"
     "</tt:Parameters>",
     kFilled},
    {"OnvifCalibration",
     "<tt:Parameters><tt:ElementItem Name='Calibration'><tt:Calibration>%</tt:Calibration>"
     "</tt:ElementItem></tt:Parameters>",
     kFilled},
    {"VendorItem",
     "<tt:Parameters><ka:ElementItem Name='Calibration'><ka:Calibration>%</ka:Calibration>"
     "</ka:ElementItem></tt:Parameters>",
     kFilled},
    {"SimpleItem",
     "<tt:Parameters><tt:SimpleItem Name='Calibration'><ka:Calibration>%</ka:Calibration>"
     "</tt:SimpleItem></tt:Parameters>",
     kFilled},
    {"VendorParameters",
     "<ka:Parameters><tt:ElementItem Name='Calibration'><ka:Calibration>%</ka:Calibration>"
     "</tt:ElementItem></ka:Parameters>",
     kFilled},
    {"ItemOutsideParameters",
     "<tt:ElementItem Name='Calibration'><ka:Calibration>%</ka:Calibration></tt:ElementItem>",
     kFilled},
};

class ACalibrationBehind : public ACalibration, public testing::WithParamInterface<Row> {};

TEST_P(ACalibrationBehind, ABrokenWayKeepsEveryValue) {
  std::string parameters = GetParam().content;
  const std::string::size_type place = parameters.find('%');
  if (place != std::string::npos) parameters.replace(place, 1, WholeContent());
  EXPECT_EQ(GetParam().expected, ReadRule(parameters));
}

INSTANTIATE_TEST_SUITE_P(Ways, ACalibrationBehind, testing::ValuesIn(kBrokenWays),
                         [](const testing::TestParamInfo<Row>& row) { return row.param.name; });

}  // namespace
}  // namespace analytics
