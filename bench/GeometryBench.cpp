#include <array>
#include <cstddef>
#include <vector>

#include <analytics/Calibration.h>
#include <analytics/types/Point.h>

#include "bench/Opened.h"
#include "bench/Pair.h"

namespace bench {
namespace {

using analytics::Calibration;
using analytics::types::Point;
using Points = std::vector<Point>;

const char kEngineQuery[] = "//tt:engine";

const char kPointQuery[] = "tt:Parameters/tt:ElementItem[@Name='Field']/tt:Polygon/tt:Point";

const char kNearLeftQuery[] =
    "tt:Parameters/tt:ElementItem[@Name='Calibration']/ka:Calibration/ka:ObjectAtNearLeft";
const char kNearWidthQuery[] =
    "tt:Parameters/tt:ElementItem[@Name='Calibration']/ka:Calibration/ka:NearWidth/tt:Point";
const char kFarWidthQuery[] =
    "tt:Parameters/tt:ElementItem[@Name='Calibration']/ka:Calibration/ka:FarWidth/tt:Point";
const char kHeightQuery[] =
    "tt:Parameters/tt:ElementItem[@Name='Calibration']/ka:Calibration/ka:PhysicalHeight";

std::vector<int> Numbers(const Points& points) {
  std::vector<int> numbers;
  for (const Point& point : points) numbers.insert(numbers.end(), {point.x, point.y});
  return numbers;
}

std::array<int, 13> Numbers(const Calibration& from) {
  std::array<int, 13> numbers{};
  int* next = numbers.data();
  for (const auto* pair : {&from.NearLeftSize(), &from.NearWidth(), &from.FarWidth()}) {
    for (const Point& point : *pair) {
      *next++ = point.x;
      *next++ = point.y;
    }
  }
  *next = from.PhysicalHeight();
  return numbers;
}

Point PointOf(xmlNodePtr node) {
  return {NumberAttribute(node, "x", 0), NumberAttribute(node, "y", 0)};
}

class PointsWithLibrary {
 public:
  explicit PointsWithLibrary(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  Points operator()() {
    Points points;
    m_rule.profile.GetPoints(points, kPointQuery, m_rule.element.get());
    return points;
  }

  std::vector<int> Outcome() { return Numbers((*this)()); }

 private:
  OpenedWithLibrary m_rule;
};

class PointsByHand {
 public:
  explicit PointsByHand(int rules) : m_rule(rules, MiddleRuleQry(rules)) {}

  Points operator()() const {
    const XmlPtr<xmlXPathObject> result = Evaluate(m_rule.profile, m_rule.element, kPointQuery);
    const int count = xmlXPathNodeSetGetLength(result->nodesetval);
    Points points;
    points.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
      points.push_back(PointOf(result->nodesetval->nodeTab[index]));
    }
    return points;
  }

  std::vector<int> Outcome() const { return Numbers((*this)()); }

 private:
  const OpenedByHand m_rule;
};

class CalibrationWithLibrary {
 public:
  explicit CalibrationWithLibrary(int rules) : m_engine(rules, kEngineQuery) {}

  Calibration operator()() {
    Calibration calibration;
    m_engine.profile.GetCalibration(calibration, m_engine.element.get());
    return calibration;
  }

  std::array<int, 13> Outcome() { return Numbers((*this)()); }

 private:
  OpenedWithLibrary m_engine;
};

class CalibrationByHand {
 public:
  explicit CalibrationByHand(int rules) : m_engine(rules, kEngineQuery) {}

  Calibration operator()() const {
    Calibration calibration;
    Point pair[2];
    if (ReadRectangle(pair, kNearLeftQuery)) calibration.SetNearLeftSize(pair);
    if (ReadLine(pair, kNearWidthQuery)) calibration.SetNearWidth(pair);
    if (ReadLine(pair, kFarWidthQuery)) calibration.SetFarWidth(pair);
    const xmlNodePtr height = First(m_engine.profile, m_engine.element, kHeightQuery);
    calibration.SetPhysicalHeight(Number(Text(height).get(), 0));
    return calibration;
  }

  std::array<int, 13> Outcome() const { return Numbers((*this)()); }

 private:
  bool ReadRectangle(Point (&corners)[2], const char* query) const {
    const xmlNodePtr node = First(m_engine.profile, m_engine.element, query);
    if (!node) return false;
    corners[0] = {NumberAttribute(node, "left", 0), NumberAttribute(node, "top", 0)};
    corners[1] = {NumberAttribute(node, "right", 0), NumberAttribute(node, "bottom", 0)};
    return true;
  }

  bool ReadLine(Point (&line)[2], const char* query) const {
    const XmlPtr<xmlXPathObject> result = Evaluate(m_engine.profile, m_engine.element, query);
    if (xmlXPathNodeSetGetLength(result->nodesetval) < 2) return false;
    line[0] = PointOf(result->nodesetval->nodeTab[0]);
    line[1] = PointOf(result->nodesetval->nodeTab[1]);
    return true;
  }

  const OpenedByHand m_engine;
};

}  // namespace

void AddGeometryPairs() {
  AddPair<PointsWithLibrary, PointsByHand>("read a polygon of 8 points", kUsualRules);
  AddPair<CalibrationWithLibrary, CalibrationByHand>("read a calibration", kUsualRules);
}

}  // namespace bench
