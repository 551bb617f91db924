#include "tests/profile/DamagedProfile.h"

#include <set>
#include <string>
#include <vector>

#include "tests/document/Indentation.h"
#include "tests/profile/CalibrationText.h"
#include "tests/profile/ProfileTest.h"
#include "tests/profile/TreeReading.h"

namespace tests {
namespace {

using analytics::Calibration;
using analytics::ProfileDoc;
using analytics::types::Point;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kFormer[] =
    "<tt:rule Type='A'><tt:Parameters><tt:SimpleItem Name='Active' Value='1'/></tt:Parameters>"
    "</tt:rule><tt:engine/><ka:eventSink/><tt:Point x='1' left='1'/><tt:Point x='2'/>";

void ExpectNoElements(ProfileDoc& profile) {
  EXPECT_EQ(nullptr, profile.SelectRootNode());
  EXPECT_EQ(nullptr, profile.SelectRule(""));
  EXPECT_EQ(nullptr, profile.SelectEngine(""));
  EXPECT_THAT(profile.SelectRules(""), IsEmpty());
  EXPECT_THAT(profile.SelectEngines(""), IsEmpty());
  EXPECT_THAT(profile.SelectEventSinks(""), IsEmpty());
  EXPECT_EQ(0, profile.DeleteRules("A"));
  EXPECT_EQ("", profile.DumpToString());
}

void ExpectNoItems(ProfileDoc& profile) {
  EXPECT_EQ("", profile.GetSimpleItemValue("Active", nullptr));
  EXPECT_EQ(5, profile.GetSimpleItemValue("Active", 5, nullptr, true));
  EXPECT_FALSE(profile.SetSimpleItemValue("Active", 5));
  EXPECT_TRUE(profile.SetOrAddSimpleItemValue("Active", 5));
  EXPECT_FALSE(profile.RuleIsActive(""));
  EXPECT_THAT(profile.ActiveRules(), IsEmpty());
}

void ExpectNoGeometry(ProfileDoc& profile) {
  std::vector<Point> points;
  EXPECT_FALSE(profile.GetPoints(points, "//tt:Point"));
  EXPECT_THAT(points, IsEmpty());
  Point pair[2] = {{5, 6}, {7, 8}};
  EXPECT_FALSE(profile.GetLine(pair, "//tt:Point"));
  EXPECT_FALSE(profile.GetRectangle(pair, "//tt:Point"));
  EXPECT_THAT(pair, ElementsAre(IsPoint(5, 6), IsPoint(7, 8)));
  Calibration calibration;
  FillCalibration(calibration);
  const std::string before = CalibrationText(calibration);
  EXPECT_TRUE(profile.GetCalibration(calibration));
  EXPECT_EQ(before, CalibrationText(calibration));
}

/// The nodes themselves are those of another tree, so their texts are compared.
std::vector<std::string> Names(const Elements& elements) {
  std::vector<std::string> names;
  for (const xmlNodePtr element : elements) names.push_back(AttributeText(element, "Name"));
  return names;
}

void ExpectElements(const TreeReading& tree, ProfileDoc& profile) {
  EXPECT_EQ(Names(tree.Rules()), Properties(profile.SelectRules(""), "Name"));
  EXPECT_EQ(Names(tree.Engines()), Properties(profile.SelectEngines(""), "Name"));
  EXPECT_EQ(Names(tree.EventSinks()), Properties(profile.SelectEventSinks(""), "Name"));
}

void ExpectItems(const TreeReading& tree, ProfileDoc& profile) {
  const std::vector<NodePtr> rules = Owned(profile.SelectRules(""));
  const Elements expected = tree.Rules();
  for (std::size_t index = 0; index < rules.size() && index < expected.size(); ++index) {
    const std::string value = tree.ItemValue(expected[index], "Sensitivity");
    EXPECT_EQ(value, profile.GetSimpleItemValue("Sensitivity", rules[index].get()));
    EXPECT_EQ(LeadingInt(value, 5),
              profile.GetSimpleItemValue("Sensitivity", 5, rules[index].get(), true));
  }
  EXPECT_EQ(tree.ActiveTypes(), profile.ActiveRules());
  EXPECT_EQ(tree.HasActiveRule(), profile.RuleIsActive(""));
}

int Coordinate(xmlNodePtr element, const char* name, int fallback) {
  return LeadingInt(AttributeText(element, name), fallback);
}

void ExpectPoints(const Elements& expected, ProfileDoc& profile) {
  std::vector<Point> points;
  EXPECT_EQ(!expected.empty(), profile.GetPoints(points, "//tt:Point"));
  ASSERT_EQ(expected.size(), points.size());
  for (std::size_t index = 0; index < points.size(); ++index) {
    EXPECT_THAT(points[index],
                IsPoint(Coordinate(expected[index], "x", 0), Coordinate(expected[index], "y", 0)));
  }
}

void ExpectRectangle(const Elements& expected, ProfileDoc& profile) {
  Point pair[2] = {{5, 6}, {7, 8}};
  ASSERT_EQ(!expected.empty(), profile.GetRectangle(pair, "//ka:ObjectAtNearLeft"));
  if (expected.empty()) return;
  const xmlNodePtr object = expected.front();
  EXPECT_THAT(
      pair, ElementsAre(IsPoint(Coordinate(object, "left", 5), Coordinate(object, "top", 6)),
                        IsPoint(Coordinate(object, "right", 7), Coordinate(object, "bottom", 8))));
}

/// A type that is empty or ends the text of the query deletes nothing.
void ExpectDeletion(const TreeReading& tree, ProfileDoc& profile) {
  const std::vector<std::string> types = Properties(profile.SelectRules(""), "Type");
  for (const std::string& type : std::set<std::string>(types.begin(), types.end())) {
    const bool selects = !type.empty() && type.find('"') == std::string::npos;
    const int expected = selects ? tree.RulesOfType(type) : 0;
    const std::size_t before = Owned(profile.SelectRules("")).size();
    EXPECT_EQ(expected, profile.DeleteRules(type));
    EXPECT_EQ(before - static_cast<std::size_t>(expected), Owned(profile.SelectRules("")).size());
  }
}

void ExpectSame(xmlDoc& parsed, const Vocabulary& vocabulary, ProfileDoc& profile) {
  const TreeReading tree(parsed, vocabulary);
  EXPECT_EQ(DumpOf(parsed), profile.DumpToString());
  ExpectElements(tree, profile);
  ExpectItems(tree, profile);
  ExpectPoints(tree.Points(), profile);
  ExpectRectangle(tree.NearLeftObjects(), profile);
  ExpectDeletion(tree, profile);
}

void ExpectAsParsedAlone(const std::string& text, const Vocabulary& vocabulary) {
  const TreePtr alone = ParsedAlone(text);
  ProfileDoc profile;
  ASSERT_TRUE(profile.ParseString(ProfileText(kFormer)));
  ASSERT_EQ(alone != nullptr, profile.ParseString(text));
  if (alone) return ExpectSame(*alone, vocabulary, profile);
  ExpectNoElements(profile);
  ExpectNoItems(profile);
  ExpectNoGeometry(profile);
}

}  // namespace

DamagedProfile::DamagedProfile() {
  // What libxml2 makes once, at its first use, is no leak.
  ProfileDoc profile;
  EXPECT_TRUE(profile.ParseString("<?xml version='1.0' encoding='UTF-8'?><a/>"));
  EXPECT_THAT(profile.SelectRules(""), IsEmpty());
}

void DamagedProfile::ReadWith(const Vocabulary& vocabulary) {
  m_vocabulary = vocabulary;
  Load(vocabulary);
}

void DamagedProfile::CheckText(const std::string& text, const std::string& damage) {
  if (HasFailure()) return;
  SCOPED_TRACE(damage);
  const analytics::Indentation indented(1);
  const long before = XmlAllocations::Alive();
  ExpectAsParsedAlone(text, m_vocabulary);
  EXPECT_EQ(before, XmlAllocations::Alive()) << "not released";
}

}  // namespace tests
