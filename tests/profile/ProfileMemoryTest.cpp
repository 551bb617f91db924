#include <string>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "tests/document/TestDocuments.h"
#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/support/MemoryTable.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {
namespace {

using tests::Answer;
using tests::NodeList;
using tests::NodePtr;
using types::Point;

// Names and numbers beyond what a string holds without an allocation of its own.
const std::string kType = "a type that is rather long: FieldDetector";
const std::string kOtherType = "another type that is rather long: LineDetector";
const std::string kItem = "an item whose name is rather long";
const std::string kNewItem = "a new item whose name is rather long";
const std::string kValue = "80 and a text that is rather long";
const std::string kPointQry = "descendant-or-self::tt:Point[@x]";
const std::string kRectangleQry = "tt:rectangle";

std::string Item(const std::string& name, const std::string& value) {
  return "<tt:SimpleItem Name=\"" + name + "\" Value=\"" + value + "\"/>";
}

const std::string kActive = Item("Active", "1");
const std::string kCalibration =
    "<tt:ElementItem Name=\"Calibration\"><ka:Calibration>"
    "<ka:ObjectAtNearLeft left=\"1\" top=\"2\" right=\"3\" bottom=\"00000000000000000004\"/>"
    "<ka:NearWidth><tt:Point x=\"5\" y=\"6\"/><tt:Point x=\"7\" y=\"8\"/></ka:NearWidth>"
    "<ka:FarWidth><tt:Point x=\"9\" y=\"10\"/><tt:Point x=\"11\" y=\"12\"/></ka:FarWidth>"
    "<ka:PhysicalHeight>00000000000000000013</ka:PhysicalHeight>"
    "</ka:Calibration></tt:ElementItem>";

std::string Rule(const std::string& type, const std::string& items) {
  return "<tt:rule Type=\"" + type + "\"><tt:Parameters>" + items + "</tt:Parameters></tt:rule>";
}

const std::string kItems = Item(kItem, kValue) + kActive;
const std::string kOther = Rule(kOtherType, kActive);
const std::string kLast = Rule(kType, kItems);
const std::string kEngine = "<tt:engine Type=\"" + kType + "\"/>";
const std::string kSink = "<ka:eventSink Type=\"" + kType + "\"/>";
const std::string kTail =
    kEngine + kSink +
    "<tt:rectangle left=\"00000000000000000001\" top=\"2\" right=\"3\" bottom=\"4\"/>";

/// The profile with these items in its first rule.
std::string Profile(const std::string& items) {
  return Rule(kType, items + kCalibration) + kOther + kLast + kTail;
}

struct Files {
  const std::string text = tests::ProfileText(Profile(kItems));
  const tests::TemporaryDirectory directory;
  const std::string whole = directory.Write("profile.xml", text);
};

/// A profile and what its operations are given and fill.
class ProfileSubject {
 public:
  ProfileSubject() { Reset(); }

  void Reset() {
    EXPECT_TRUE(profile.ParseString(Shared().text));
    rule = NodeAt(profile, "tt:rule");
    parameters = NodeAt(profile, "tt:rule/tt:Parameters");
    pointNode = NodeAt(profile, "//tt:Point");
    points.clear();
    pair[0] = pair[1] = Point{100, 101};
    tests::FillCalibration(calibration);
  }

  /// The content of the root element and what has been filled.
  std::string State() {
    const NodePtr root(profile.SelectRootNode());
    if (!root) return "closed";
    std::string all;
    for (const NodePtr& node : tests::All(profile, "*")) all += node->DumpToString();
    return (all.empty() ? "without context" : all) + Filled();
  }

  ProfileDoc profile;
  DocumentNode rule, parameters, pointNode;
  std::vector<Point> points;
  Point pair[2];
  Calibration calibration;

  // One for all, because files take their time.
  static const Files& Shared() {
    static const Files s_files;
    return s_files;
  }

 private:
  std::string Filled() const {
    std::string all = " pair " + tests::PairText(pair) + " points ";
    for (const Point& point : points) all += tests::PointText(point);
    return all + " " + tests::CalibrationText(calibration);
  }
};

using S = ProfileSubject;

const std::string kUnfilledPair = "(100,101)-(100,101)";
const std::string kUnfilledCalibration =
    "near left (101,102)-(103,104), near width (105,106)-(107,108), "
    "far width (109,110)-(111,112), height 113";

std::string Holds(const std::string& content, const std::string& pair = kUnfilledPair,
                  const std::string& points = "",
                  const std::string& calibration = kUnfilledCalibration) {
  return content + " pair " + pair + " points " + points + " " + calibration;
}

const std::string kText = Profile(kItems);
const std::string kWithoutContext = Holds("without context");
const std::string kClosed = "closed";

/// Whether each coordinate is as wanted or as `other`.
bool IsEither(const Point& point, const Point& wanted, const Point& other) {
  return (point.x == wanted.x || point.x == other.x) && (point.y == wanted.y || point.y == other.y);
}

// A coordinate that cannot be read is 0 in a list of points, as one that is absent.
bool HasPartsOfPoints(const S& s) {
  const Point wanted[] = {{5, 6}, {7, 8}, {9, 10}, {11, 12}};
  return s.points.size() == std::size(wanted) &&
         std::equal(s.points.begin(), s.points.end(), wanted, [](const Point& a, const Point& b) {
           return IsEither(a, b, {0, 0});
         });
}

bool HasPartsOfALine(const S& s) {
  return IsEither(s.pair[0], {5, 6}, {0, 0}) && IsEither(s.pair[1], {7, 8}, {0, 0});
}

// Elsewhere it keeps its value.
bool HasPartsOfARectangle(const S& s) {
  return IsEither(s.pair[0], {1, 2}, {100, 101}) && IsEither(s.pair[1], {3, 4}, {100, 101});
}

template <std::size_t kPoints>
bool IsPart(const Point (&pair)[kPoints], const Point& first, const Point& second) {
  return IsEither(pair[0], first, {0, 0}) && IsEither(pair[1], second, {0, 0});
}

bool HasPartsOfACalibration(const S& s) {
  const Point(&left)[2] = s.calibration.NearLeftSize();
  const Point(&near)[2] = s.calibration.NearWidth();
  const Point(&far)[2] = s.calibration.FarWidth();
  const int height = s.calibration.PhysicalHeight();
  return IsEither(left[0], {1, 2}, {101, 102}) && IsEither(left[1], {3, 4}, {103, 104}) &&
         (near[0].x == 105 || IsPart(near, {5, 6}, {7, 8})) &&
         (far[0].x == 109 || IsPart(far, {9, 10}, {11, 12})) && (height == 13 || height == 113);
}

const tests::MemoryRow<ProfileSubject> kRows[] = {
    {"Construct", [](S&) -> Answer { return ProfileDoc().Close(), true; }, "true"},
    {"ParseText",
     [](S& s) -> Answer { return s.profile.ParseString(S::Shared().text); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"ParseFile",
     [](S& s) -> Answer { return s.profile.ParseFile(S::Shared().whole); },
     "true",
     {"false"},
     {},
     {kClosed, kWithoutContext}},
    {"CreateSearchContext",
     [](S& s) -> Answer { return s.profile.CreateSearchContext(); },
     "true",
     {"false"},
     {},
     {kWithoutContext}},
    {"SelectRule",
     [](S& s) -> Answer { return NodePtr(s.profile.SelectRule(kOtherType)); },
     kOther,
     {"null"}},
    {"SelectRules",
     [](S& s) -> Answer { return NodeList(s.profile.SelectRules(kOtherType)); },
     "[" + kOther + "]",
     {"[]"}},
    {"SelectEngine",
     [](S& s) -> Answer { return NodePtr(s.profile.SelectEngine(kType)); },
     kEngine,
     {"null"}},
    {"SelectEngines",
     [](S& s) -> Answer { return NodeList(s.profile.SelectEngines(kType)); },
     "[" + kEngine + "]",
     {"[]"}},
    {"SelectEventSinks",
     [](S& s) -> Answer { return NodeList(s.profile.SelectEventSinks(kType)); },
     "[" + kSink + "]",
     {"[]"}},
    {"DeleteRules",
     [](S& s) -> Answer { return s.profile.DeleteRules(kType); },
     "2",
     {"0"},
     Holds(kOther + kTail)},
    {"SimpleItemQry", [](S&) -> Answer { return ProfileDoc::SimpleItemQry(true); },
     "'tt:Parameters/tt:SimpleItem'"},
    {"ElementItemQry", [](S&) -> Answer { return ProfileDoc::ElementItemQry(true); },
     "'tt:Parameters/tt:ElementItem'"},
    {"GetItem",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, &s.rule, true); },
     "'" + kValue + "'",
     {"''"}},
    {"GetItemOfParameters",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, &s.parameters, false); },
     "'" + kValue + "'",
     {"''"}},
    {"GetIntegerItem",
     [](S& s) -> Answer { return s.profile.GetSimpleItemValue(kItem, 5, &s.rule, true); },
     "80",
     {"5"}},
    {"SetItem",
     [](S& s) -> Answer { return s.profile.SetSimpleItemValue(kItem, kNewItem, &s.rule); },
     "true",
     {"false"},
     Holds(Profile(Item(kItem, kNewItem) + kActive))},
    {"SetIntegerItem",
     [](S& s) -> Answer { return s.profile.SetSimpleItemValue(kItem, 7, &s.rule); },
     "true",
     {"false"},
     Holds(Profile(Item(kItem, "7") + kActive))},
    {"SetOrAddPresentItem",
     [](S& s) -> Answer {
       return s.profile.SetOrAddSimpleItemValue(kItem, kNewItem, &s.parameters);
     },
     "true",
     {},
     Holds(Profile(Item(kItem, kNewItem) + kActive)),
     // An item that cannot be found is added, as one that is not there.
     {Holds(Profile(kItems).replace(Profile(kItems).find(kCalibration) + kCalibration.size(), 0,
                                    Item(kItem, kNewItem)))}},
    {"SetOrAddNewItem",
     [](S& s) -> Answer {
       return s.profile.SetOrAddSimpleItemValue(kNewItem, kValue, &s.parameters);
     },
     "true",
     {},
     Holds(Profile(kItems).replace(Profile(kItems).find(kCalibration) + kCalibration.size(), 0,
                                   Item(kNewItem, kValue)))},
    {"SetOrAddNewIntegerItem",
     [](S& s) -> Answer { return s.profile.SetOrAddSimpleItemValue(kNewItem, 7, &s.parameters); },
     "true",
     {},
     Holds(Profile(kItems).replace(Profile(kItems).find(kCalibration) + kCalibration.size(), 0,
                                   Item(kNewItem, "7")))},
    {"RuleIsActive",
     [](S& s) -> Answer { return s.profile.RuleIsActive(kOtherType); },
     "true",
     {"false"}},
    {"ActiveRules",
     [](S& s) -> Answer { return s.profile.ActiveRules(); },
     "['" + kType + "''" + kOtherType + "']",
     // A rule whose activity or type cannot be read is passed over, as one without either is.
     {"[]", "['" + kOtherType + "']", "['" + kType + "']",
      "['" + kOtherType + "''" + kType + "']"}},
    {"PointFromNode",
     [](S& s) -> Answer { return s.profile.PointFromNode(&s.pointNode, s.pair[0]); },
     "true",
     {},
     Holds(kText, "(5,6)-(100,101)"),
     {Holds(kText, "(5,101)-(100,101)"), Holds(kText, "(100,6)-(100,101)")}},
    {"GetPoints",
     [](S& s) -> Answer { return s.profile.GetPoints(s.points, kPointQry, nullptr); },
     "true",
     {"false"},
     Holds(kText, kUnfilledPair, "(5,6)(7,8)(9,10)(11,12)"),
     // The points gathered so far stay with the caller.
     {Holds(kText, kUnfilledPair, "(5,6)"), Holds(kText, kUnfilledPair, "(5,6)(7,8)"),
      Holds(kText, kUnfilledPair, "(5,6)(7,8)(9,10)")},
     HasPartsOfPoints},
    {"GetLine",
     [](S& s) -> Answer { return s.profile.GetLine(s.pair, kPointQry); },
     "true",
     {"false"},
     Holds(kText, "(5,6)-(7,8)"),
     {},
     HasPartsOfALine},
    {"GetRectangle",
     [](S& s) -> Answer { return s.profile.GetRectangle(s.pair, kRectangleQry); },
     "true",
     {"false"},
     Holds(kText, "(1,2)-(3,4)"),
     {},
     HasPartsOfARectangle},
    {"GetCalibration",
     [](S& s) -> Answer { return s.profile.GetCalibration(s.calibration, &s.rule); },
     "true",
     {},
     Holds(kText, kUnfilledPair, "",
           "near left (1,2)-(3,4), near width (5,6)-(7,8), far width (9,10)-(11,12), height 13"),
     {},
     HasPartsOfACalibration},
};

using ProfileMemoryTest = tests::MemoryTableTest<ProfileSubject>;

TEST_P(ProfileMemoryTest, GivesBadAllocAndLosesNothing) { RunOutOfCppMemory(); }

TEST_P(ProfileMemoryTest, GivesWhatItHasOrNothing) { RunOutOfXmlMemory(); }

INSTANTIATE_TEST_SUITE_P(Rows, ProfileMemoryTest, testing::ValuesIn(kRows),
                         tests::MemoryRowName<ProfileSubject>);

}  // namespace
}  // namespace analytics
