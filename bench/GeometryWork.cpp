#include <array>
#include <string>
#include <vector>

#include <analytics/Calibration.h>
#include <analytics/types/Point.h>

#include "bench/Samples.h"
#include "bench/Work.h"
#include "bench/sides/Everyone.h"

namespace bench {
namespace {

using analytics::Calibration;
using analytics::types::Point;
using Points = std::vector<Point>;

const char kEngineQuery[] = "//tt:engine";
const char kPointQuery[] = "tt:Parameters/tt:ElementItem[@Name='Field']/tt:Polygon/tt:Point";

std::string CalibrationQry(const std::string& path) {
  return "tt:Parameters/tt:ElementItem[@Name='Calibration']/ka:Calibration/" + path;
}

std::vector<int> Numbers(const Points& points) {
  std::vector<int> numbers;
  for (const Point& point : points) numbers.insert(numbers.end(), {point.x, point.y});
  return numbers;
}

std::vector<int> Numbers(const Calibration& from) {
  std::vector<int> numbers{from.PhysicalHeight()};
  for (const auto* pair : {&from.NearLeftSize(), &from.NearWidth(), &from.FarWidth()}) {
    for (const Point& point : *pair) numbers.insert(numbers.end(), {point.x, point.y});
  }
  return numbers;
}

template <typename Side>
Point PointOf(typename Side::Node node, const char* x, const char* y) {
  return {Side::Number(node, x), Side::Number(node, y)};
}

template <typename Side>
class ReadPoints {
 public:
  explicit ReadPoints(const Profile& sample)
      : m_profile(Side::Parse(sample.Text())),
        m_rule(m_profile.First(m_profile.Root(), typename Side::Path(MiddleRuleQry(sample)))) {}

  Points operator()() const {
    const typename Side::Nodes nodes = m_profile.Select(m_rule, m_query);
    Points points;
    points.reserve(nodes.size());
    for (const auto& node : nodes) points.push_back(PointOf<Side>(node, "x", "y"));
    return points;
  }

  std::vector<int> Outcome() const { return Numbers((*this)()); }

 private:
  const Side m_profile;
  const typename Side::Node m_rule;
  const typename Side::Path m_query{kPointQuery};
};

template <>
class ReadPoints<Library> {
 public:
  explicit ReadPoints(const Profile& sample) : m_at(sample, MiddleRuleQry(sample)) {}

  Points operator()() {
    Points points;
    m_at.profile.GetPoints(points, kPointQuery, m_at.element.get());
    return points;
  }

  std::vector<int> Outcome() { return Numbers((*this)()); }

 private:
  Opened m_at;
};

template <typename Side>
class ReadCalibration {
 public:
  explicit ReadCalibration(const Profile& sample)
      : m_profile(Side::Parse(sample.Text())),
        m_engine(m_profile.First(m_profile.Root(), typename Side::Path(kEngineQuery))) {}

  Calibration operator()() const {
    Calibration calibration;
    Point pair[2];
    if (ReadRectangle(pair)) calibration.SetNearLeftSize(pair);
    if (ReadLine(pair, m_nearWidth)) calibration.SetNearWidth(pair);
    if (ReadLine(pair, m_farWidth)) calibration.SetFarWidth(pair);
    calibration.SetPhysicalHeight(Side::TextNumber(m_profile.First(m_engine, m_height), 0));
    return calibration;
  }

  std::vector<int> Outcome() const { return Numbers((*this)()); }

 private:
  using Path = typename Side::Path;

  bool ReadRectangle(Point (&corners)[2]) const {
    const auto node = m_profile.First(m_engine, m_nearLeft);
    if (!node) return false;
    corners[0] = PointOf<Side>(node, "left", "top");
    corners[1] = PointOf<Side>(node, "right", "bottom");
    return true;
  }

  bool ReadLine(Point (&line)[2], const Path& query) const {
    const typename Side::Nodes nodes = m_profile.Select(m_engine, query);
    if (nodes.size() < 2) return false;
    line[0] = PointOf<Side>(nodes.begin()[0], "x", "y");
    line[1] = PointOf<Side>(nodes.begin()[1], "x", "y");
    return true;
  }

  const Side m_profile;
  const typename Side::Node m_engine;
  const Path m_nearLeft{CalibrationQry("ka:ObjectAtNearLeft")};
  const Path m_nearWidth{CalibrationQry("ka:NearWidth/tt:Point")};
  const Path m_farWidth{CalibrationQry("ka:FarWidth/tt:Point")};
  const Path m_height{CalibrationQry("ka:PhysicalHeight")};
};

template <>
class ReadCalibration<Library> {
 public:
  explicit ReadCalibration(const Profile& sample) : m_at(sample, kEngineQuery) {}

  Calibration operator()() {
    Calibration calibration;
    m_at.profile.GetCalibration(calibration, m_at.element.get());
    return calibration;
  }

  std::vector<int> Outcome() { return Numbers((*this)()); }

 private:
  Opened m_at;
};

}  // namespace

void AddGeometryWork() {
  for (const int corners : {4, 16, 256}) {
    AddWork<ReadPoints>(Everyone(), "read a polygon of " + std::to_string(corners) + " points", "",
                        Profile{100, 8, corners});
  }
  AddWork<ReadCalibration>(Everyone(), "read a calibration", "", Profile());
}

}  // namespace bench
