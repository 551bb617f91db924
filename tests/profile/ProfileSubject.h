#pragma once

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <analytics/Calibration.h>
#include <analytics/ProfileDoc.h>

#include "tests/document/TestDocuments.h"
#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/support/MemoryTable.h"
#include "tests/support/TemporaryDirectory.h"

namespace analytics {

using tests::NodePtr;
using types::Point;

// Names and numbers beyond what a string holds without an allocation of its own.
inline const std::string kType = "a type that is rather long: FieldDetector";
inline const std::string kOtherType = "another type that is rather long: LineDetector";
inline const std::string kItem = "an item whose name is rather long";
inline const std::string kNewItem = "a new item whose name is rather long";
inline const std::string kValue = "80 and a text that is rather long";
inline const std::string kPointQry = "descendant-or-self::tt:Point[@x]";
inline const std::string kRectangleQry = "tt:rectangle";

inline std::string Item(const std::string& name, const std::string& value) {
  return "<tt:SimpleItem Name=\"" + name + "\" Value=\"" + value + "\"/>";
}

inline const std::string kActive = Item("Active", "1");
inline const std::string kCalibration =
    R"(<tt:ElementItem Name="Calibration"><ka:Calibration>)"
    R"(<ka:ObjectAtNearLeft left="1" top="2" right="3" bottom="00000000000000000004"/>)"
    R"(<ka:NearWidth><tt:Point x="5" y="00000000000000000006"/><tt:Point x="7" y="8"/></ka:NearWidth>)"
    R"(<ka:FarWidth><tt:Point x="9" y="10"/><tt:Point x="11" y="12"/></ka:FarWidth>)"
    "<ka:PhysicalHeight>00000000000000000013</ka:PhysicalHeight>"
    "</ka:Calibration></tt:ElementItem>";

inline std::string Rule(const std::string& type, const std::string& items) {
  return "<tt:rule Type=\"" + type + "\"><tt:Parameters>" + items + "</tt:Parameters></tt:rule>";
}

inline const std::string kItems = Item(kItem, kValue) + kActive;
inline const std::string kOther = Rule(kOtherType, kActive);
inline const std::string kLast = Rule(kType, kItems);
inline const std::string kEngine = "<tt:engine Type=\"" + kType + "\"/>";
inline const std::string kSink = "<ka:eventSink Type=\"" + kType + "\"/>";
inline const std::string kTail =
    kEngine + kSink + R"(<tt:rectangle left="00000000000000000001" top="2" right="3" bottom="4"/>)";

/// The profile with these items in its first rule.
inline std::string Profile(const std::string& items) {
  return Rule(kType, items + kCalibration) + kOther + kLast + kTail;
}

struct ProfileFiles {
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
  static const ProfileFiles& Shared() {
    static const ProfileFiles s_files;
    return s_files;
  }

 private:
  std::string Filled() const {
    std::string all = " pair " + tests::PairText(pair) + " points ";
    for (const Point& point : points) all += tests::PointText(point);
    return all + " " + tests::CalibrationText(calibration);
  }
};

inline const std::string kUnfilledPair = "(100,101)-(100,101)";
inline const std::string kUnfilledCalibration =
    "near left (101,102)-(103,104), near width (105,106)-(107,108), "
    "far width (109,110)-(111,112), height 113";

inline std::string Holds(const std::string& content, const std::string& pair = kUnfilledPair,
                         const std::string& points = "",
                         const std::string& calibration = kUnfilledCalibration) {
  return content + " pair " + pair + " points " + points + " " + calibration;
}

inline const std::string kText = Profile(kItems);
inline const std::string kWithoutContext = Holds("without context");
inline const std::string kClosed = "closed";

}  // namespace analytics
